#include "dialog/memory/NamePanel.h"

#include "dialog/Layout.hpp"
#include "dialog/Text.h"
#include "dialog/theme/TapeTheme.h"

#include <algorithm>

// A class of its own, by which scripts find the field among the labels.
@interface PresetNameField : NSTextField
@end

@implementation PresetNameField
@end

namespace {

const NSRect kContent = {{0, 0}, {420, 138}};
const NSRect kQuestion = {{20, 102}, {70, 17}};
const NSRect kField = {{98, 99}, {302, 22}};
const NSRect kQuestionAlone = {{20, 88}, {380, 34}};
const NSRect kMessage = {{20, 54}, {380, 32}};
// Both buttons are as wide as the longest title of either.
const NSRect kButtons = {{20, 16}, {380, 26}};
const double kButtonGap = 8;

NSTextField* makeText(NSRect frame, NSString* text, CGFloat size)
{
    NSTextField* const label = [[NSTextField alloc] initWithFrame:frame];
    [label setEditable:NO];
    [label setSelectable:NO];
    [label setBezeled:NO];
    [label setBordered:NO];
    [label setDrawsBackground:NO];
    [label setFont:[NSFont systemFontOfSize:size]];
    [[label cell] setWraps:YES];
    [label setStringValue:text];
    return label;
}

NSButton* makeButton(NSRect frame, NSString* title, NSString* key, id target, SEL action)
{
    NSButton* const button = [[NSButton alloc] initWithFrame:frame];
    [button setTitle:title];
    [button setBezelStyle:NSRoundedBezelStyle];
    [button setFont:[NSFont systemFontOfSize:12]];
    [button setKeyEquivalent:key];
    [button setTarget:target];
    [button setAction:action];
    return button;
}

double widthOf(NSString* title)
{
    return [title sizeWithAttributes:@{NSFontAttributeName : [NSFont systemFontOfSize:12]}].width;
}

} // namespace

@interface NamePanel (Actions)
- (void)take:(id)sender;
- (void)cancel:(id)sender;
@end

@implementation NamePanel

- (id)initWithTitle:(NSString*)title
           question:(NSString*)question
               name:(NSString*)name
               verb:(NSString*)verb
              taker:(id<NamePanelTaker>)taker
{
    self = [super init];
    if (self == nil) {
        return nil;
    }
    taker_ = taker;
    verb_ = [verb copy];
    panel_ = [[NSPanel alloc] initWithContentRect:kContent styleMask:NSTitledWindowMask
                                          backing:NSBackingStoreBuffered
                                            defer:NO];
    [panel_ setReleasedWhenClosed:NO];
    [panel_ setTitle:title];
    [panel_ setDelegate:(id)self];
    text_ = makeText(name == nil ? kQuestionAlone : kQuestion, question, 12);
    message_ = makeText(kMessage, @"", 11);
    [message_ setTextColor:dialog::themeColor(dialog::Role::Failure)];
    double widest = 0;
    for (NSString* word in @[ verb, dialog::localized("Cancel"), dialog::localized("Replace") ]) {
        widest = std::max(widest, widthOf(word));
    }
    const double width = dialog::buttonWidth(widest, (NSWidth(kButtons) - kButtonGap) / 2);
    NSRect button = kButtons;
    button.size.width = width;
    button.origin.x = NSMaxX(kButtons) - width;
    button_ = makeButton(button, verb, @"\r", self, @selector(take:));
    button.origin.x -= width + kButtonGap;
    cancel_ = makeButton(button, dialog::localized("Cancel"), @"\e", self, @selector(cancel:));
    for (NSView* view in @[ text_, message_, cancel_, button_ ]) {
        [[panel_ contentView] addSubview:view];
    }
    if (name != nil) {
        [text_ setAlignment:NSRightTextAlignment];
        field_ = [[PresetNameField alloc] initWithFrame:kField];
        [field_ setFont:[NSFont systemFontOfSize:12]];
        [field_ setStringValue:name];
        [field_ setDelegate:(id)self];
        [[panel_ contentView] addSubview:field_];
        [field_ setNextKeyView:cancel_];
        [cancel_ setNextKeyView:button_];
        [button_ setNextKeyView:field_];
        [panel_ setInitialFirstResponder:field_];
    }
    return self;
}

- (void)dealloc
{
    [panel_ setDelegate:nil];
    [field_ setDelegate:nil];
    for (NSButton* button in @[ cancel_, button_ ]) {
        [button setTarget:nil];
        [button release];
    }
    [field_ release];
    [text_ release];
    [message_ release];
    [verb_ release];
    [panel_ release];
    [super dealloc];
}

- (BOOL)runOver:(NSWindow*)window
{
    const NSRect below = [window frame];
    const NSSize size = [panel_ frame].size;
    [panel_ setFrameOrigin:NSMakePoint(NSMidX(below) - size.width / 2,
                                       NSMidY(below) - size.height / 2)];
    [panel_ makeKeyAndOrderFront:nil];
    if (field_ != nil) {
        [field_ selectText:nil];
    }
    [NSApp runModalForWindow:panel_];
    [panel_ orderOut:nil];
    [window makeKeyWindow];
    return taken_;
}

- (void)take:(id)sender
{
    const std::string typed =
        field_ == nil ? std::string() : dialog::toString([field_ stringValue]);
    const dialog::NameAnswer answer = [taker_ takeName:typed replacing:replacing_];
    if (answer.sentence.empty()) {
        taken_ = YES;
        [NSApp stopModal];
        return;
    }
    replacing_ = answer.mayReplace;
    [button_ setTitle:replacing_ ? dialog::localized("Replace") : verb_];
    [message_ setStringValue:dialog::toNSString(answer.sentence)];
    [panel_ makeFirstResponder:field_];
}

- (void)cancel:(id)sender
{
    [NSApp stopModal];
}

- (BOOL)windowShouldClose:(id)sender
{
    [self cancel:sender];
    return NO;
}

// Another name is another question.
- (void)controlTextDidChange:(NSNotification*)note
{
    replacing_ = NO;
    [button_ setTitle:verb_];
    [message_ setStringValue:@""];
}

@end
