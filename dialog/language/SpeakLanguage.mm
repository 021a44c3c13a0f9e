#include "dialog/language/SpeakLanguage.h"

#include "dialog/Text.h"
#include "dialog/language/FontFamily.hpp"

#include <AppKit/AppKit.h>

namespace dialog {

namespace {

// The toolkit's name of the family's member with these traits, else of its first one; nil without
// any.
NSString* memberOf(NSString* family, NSFontTraitMask traits)
{
    NSArray* const members =
        [[NSFontManager sharedFontManager] availableMembersOfFontFamily:family];
    for (NSArray* member in members) {
        if ([[member objectAtIndex:3] unsignedIntegerValue] == traits) {
            return [member objectAtIndex:0];
        }
    }
    return [members count] == 0 ? nil : [[members objectAtIndex:0] objectAtIndex:0];
}

} // namespace

void speak(const Language& language)
{
    [NSUserDefaults setUserLanguages:@[ toNSString(language.code), @"en", @"English" ]];
}

void useFontFor(const Language& language)
{
    if (language.font.empty()) {
        return;
    }
    NSString* const family = toNSString(familyForLanguage(language.font));
    NSString* const regular = memberOf(family, 0);
    NSString* const bold = memberOf(family, NSBoldFontMask);
    if (regular == nil) {
        return;
    }
    NSMutableDictionary* const fonts = [NSMutableDictionary dictionary];
    for (NSString* role in @[
             @"NSFont", @"NSUserFont", @"NSMenuFont", @"NSMessageFont", @"NSPaletteFont",
             @"NSToolTipsFont", @"NSControlContentFont", @"NSLabelFont"
         ]) {
        [fonts setObject:regular forKey:role];
    }
    [fonts setObject:bold forKey:@"NSBoldFont"];
    [fonts setObject:bold forKey:@"NSTitleBarFont"];
    // Registered values are the weakest: what the user set stays.
    [[NSUserDefaults standardUserDefaults] registerDefaults:fonts];
}

} // namespace dialog
