#include "ppd/PDEUtilsMethod13.h"

#include "ppd/ChoiceLookup.hpp"
#include "ppd/PDEChoice.h"
#include "ppd/PPDText.h"

@implementation PDEUtilsMethod13

+ (BOOL)runningOn105OrLater
{
    return YES;
}

+ (NSString*)ppdAttrValStr:(ppd_file_t*)ppd cStrKey:(const char*)key
{
    const ppd_attr_t* const attribute = ppdFindAttr(ppd, key, nullptr);
    return attribute ? ppd::string(attribute->value, ppd::systemEncoding()) : nil;
}

+ (NSString*)ppdOptionTextStr:(ppd_file_t*)ppd cStrKey:(const char*)key
{
    const ppd_option_t* const option = ppdFindOption(ppd, key);
    return option ? ppd::string(option->text, ppd::systemEncoding()) : nil;
}

+ (BOOL)isSupportedItem:(ppd_file_t*)ppd cStrKey:(const char*)key
{
    return [[self ppdAttrValStr:ppd cStrKey:key] isEqualToString:@"False"];
}

+ (NSPoint)originItem:(ppd_file_t*)ppd cStrKey:(const char*)key
{
    NSString* const value = [self ppdAttrValStr:ppd cStrKey:key];
    return value ? NSPointFromString(value) : NSZeroPoint;
}

+ (NSMutableArray*)arrayFromPPDOption:(ppd_option_t*)option
{
    if (!option)
        return nil;
    NSMutableArray* const choices =
        [[NSMutableArray alloc] initWithCapacity:static_cast<NSUInteger>(option->num_choices)];
    for (int i = 0; i < option->num_choices; ++i)
        [choices addObject:[PDEChoice choiceWithChoice:&option->choices[i]]];
    return choices;
}

+ (PDEChoice*)findChoiceForString:(NSString*)keyword choices:(NSArray*)choices
{
    const auto found = ppd::firstIndex([choices count], [&](std::size_t i) {
        PDEChoice* const choice = [choices objectAtIndex:i];
        return static_cast<bool>(keyword ? [[choice ppdTitle] isEqualToString:keyword]
                                         : [choice isDefaultChoice]);
    });
    return found ? [choices objectAtIndex:*found] : nil;
}

+ (NSString*)newOptionTitle:(ppd_option_t*)option
{
    return option ? ppd::newString(option->text, NSUTF8StringEncoding) : nil;
}

+ (NSString*)newChoiceTitle:(ppd_choice_t*)choice
{
    return choice ? ppd::newString(choice->text, NSUTF8StringEncoding) : nil;
}

+ (void)setEnabledForText:(BOOL)flag item:(id)control
{
    if ([control respondsToSelector:@selector(setTextColor:)])
        [self setColour:[self colourForText:flag] ofText:control];
}

+ (NSColor*)colourForText:(BOOL)flag
{
    return flag == 1 ? [NSColor controlTextColor] : [NSColor disabledControlTextColor];
}

+ (void)setColour:(NSColor*)colour ofText:(id)control
{
    // Set again, the same colour would have the control drawn again.
    if (![control respondsToSelector:@selector(textColor)] || [control textColor] != colour)
        [control setTextColor:colour];
}

@end

@implementation PDEUtilsMethod13 (PDEUtils_String)

+ (NSUInteger)stringLengthConvertedToEncoding:(NSString*)string
{
    if (!string)
        return 0;
    const NSStringEncoding system = ppd::systemEncoding();
    if ([string canBeConvertedToEncoding:system])
        return [string lengthOfBytesUsingEncoding:system];
    for (const NSStringEncoding* other = [NSString availableStringEncodings]; *other; ++other) {
        if ([string canBeConvertedToEncoding:*other])
            return [string lengthOfBytesUsingEncoding:*other];
    }
    return 0;
}

// Searched in the range where the string finds itself: an empty string, which finds nothing, holds
// nothing.
static NSRange rangeInString(NSString* string, NSString* searched)
{
    const NSRange nowhere = {.location = NSNotFound};
    if ([string length] == 0 || [searched length] == 0)
        return nowhere;
    const NSRange whole = [string rangeOfString:string options:NSLiteralSearch];
    if (whole.location == NSNotFound)
        return nowhere;
    return [string rangeOfString:searched options:NSLiteralSearch range:whole];
}

+ (BOOL)scanString:(NSString*)string intoString:(NSString*)searched
{
    return rangeInString(string, searched).location != NSNotFound;
}

+ (NSMutableString*)deleteString:(NSString*)string intoString:(NSString*)searched
{
    const NSRange found = rangeInString(string, searched);
    if (found.location == NSNotFound)
        return nil;
    NSMutableString* const rest = [NSMutableString stringWithString:string];
    [rest deleteCharactersInRange:found];
    return rest;
}

@end
