// The toolkit's text field asks its formatter about the whole text after an edit, and never through
// the message that carries the ranges.  Its field editor does ask the field, as its delegate,
// before an edit; the field answers by asking its formatter here.

#include <AppKit/AppKit.h>

#include "platform/FieldEdit.hpp"

NSString* const NSViewDidUpdateTrackingAreasNotification =
    @"NSViewDidUpdateTrackingAreasNotification";

namespace {

printing::TextRange rangeOf(NSRange range)
{
    return {range.location, range.length};
}

NSRange rangeOf(printing::TextRange range)
{
    return NSMakeRange(range.location, range.length);
}

} // namespace

@interface NSTextField (KeystrokeCheck)
- (BOOL)textView:(NSTextView*)editor
    shouldChangeTextInRange:(NSRange)affected
          replacementString:(NSString*)replacement;
@end

@implementation NSTextField (KeystrokeCheck)

- (BOOL)textView:(NSTextView*)editor
    shouldChangeTextInRange:(NSRange)affected
          replacementString:(NSString*)replacement
{
    NSFormatter* formatter = [[self cell] formatter];
    // No replacement is a change of attributes alone.
    if (formatter == nil || replacement == nil)
        return YES;

    NSString* original = [[[editor string] copy] autorelease];
    const printing::FieldEdit edit{rangeOf(affected), [replacement length],
                                   rangeOf([editor selectedRange])};
    if (!printing::fits(edit, [original length]))
        return YES;

    NSString* const offered = [original stringByReplacingCharactersInRange:affected
                                                                withString:replacement];
    NSString* proposed = offered;
    NSRange selection = rangeOf(printing::proposedSelection(edit));
    NSString* error = nil;
    if ([formatter isPartialStringValid:&proposed proposedSelectedRange:&selection
                         originalString:original
                  originalSelectedRange:rangeOf(printing::originalSelection(edit))
                       errorDescription:&error])
        return YES;

    id delegate = [self delegate];
    if ([delegate respondsToSelector:@selector(control:
                                         didFailToValidatePartialString:errorDescription:)])
        [delegate control:self didFailToValidatePartialString:offered errorDescription:error];

    // A formatter that refuses may put a text of its own in place of the proposed one.
    if (proposed != nil && ![proposed isEqualToString:offered]) {
        [editor setString:proposed];
        const NSUInteger length = [proposed length];
        selection.location = MIN(selection.location, length);
        selection.length = MIN(selection.length, length - selection.location);
        [editor setSelectedRange:selection];
        [editor didChangeText];
    }
    return NO;
}

@end
