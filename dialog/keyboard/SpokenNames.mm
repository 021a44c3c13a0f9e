#include "dialog/keyboard/SpokenNames.h"

#include "dialog/Text.h"
#include "dialog/keyboard/SpokenName.hpp"

namespace {

bool isPlainText(NSView* view)
{
    return [view isKindOfClass:[NSTextField class]] && ![(NSTextField*)view isEditable] &&
           ![(NSTextField*)view isBezeled];
}

dialog::Frame frameInWindow(NSView* view)
{
    const NSRect rect = [view convertRect:[view bounds] toView:nil];
    return {NSMinX(rect), NSMinY(rect), NSWidth(rect), NSHeight(rect)};
}

void collectCaptions(NSView* view, std::vector<dialog::Caption>& captions)
{
    if ([view isHidden]) {
        return;
    }
    // What is scrolled out of sight stands beside nothing.
    if (isPlainText(view) && !NSIsEmptyRect([view visibleRect])) {
        captions.push_back(
            {frameInWindow(view), dialog::toString([[(NSTextField*)view cell] stringValue])});
    }
    for (NSView* part in [view subviews]) {
        collectCaptions(part, captions);
    }
}

} // namespace

@implementation NSControl (SpokenNames)

- (NSString*)accessibilityLabel
{
    for (NSView* around = [self superview]; around != nil; around = [around superview]) {
        if ([around respondsToSelector:@selector(spokenNameOfControl:)]) {
            NSString* const name = [(id<SpokenNaming>)around spokenNameOfControl:self];
            if ([name length] > 0) {
                return name;
            }
        }
    }
    if (isPlainText(self)) {
        return @"";
    }
    if ([self isKindOfClass:[NSButton class]] && ![self isKindOfClass:[NSPopUpButton class]]) {
        return [(NSButton*)self title];
    }
    std::vector<dialog::Caption> captions;
    collectCaptions([[self window] contentView], captions);
    const std::string caption = dialog::captionBeside(frameInWindow(self), captions);
    if (!caption.empty()) {
        return dialog::toNSString(caption);
    }
    NSString* const tip = [self toolTip];
    return tip == nil ? @"" : tip;
}

@end
