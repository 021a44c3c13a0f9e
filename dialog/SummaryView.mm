#include "dialog/SummaryView.h"

#include "dialog/Text.h"
#include "dialog/Translate.hpp"

#include <algorithm>

@interface SummaryRows : NSView
@end

@implementation SummaryRows
- (BOOL)isFlipped
{
    return YES;
}
@end

namespace dialog {

namespace {

constexpr CGFloat kRow = 20;
constexpr CGFloat kTop = 12;
constexpr CGFloat kGap = 8;
constexpr CGFloat kHeading = 30;

NSTextField* text(NSString* string, NSRect frame, NSTextAlignment alignment, NSFont* font)
{
    NSTextField* const field = [[[NSTextField alloc] initWithFrame:frame] autorelease];
    [field setEditable:NO];
    [field setSelectable:NO];
    [field setBezeled:NO];
    [field setBordered:NO];
    [field setDrawsBackground:NO];
    [field setAlignment:alignment];
    [field setFont:font];
    [field setStringValue:string];
    [[field cell] setLineBreakMode:NSLineBreakByTruncatingTail];
    return field;
}

} // namespace

NSView* summaryView(const std::vector<SummaryLine>& lines, NSString* title, NSSize size)
{
    NSScrollView* const scroll = [[[NSScrollView alloc]
        initWithFrame:NSMakeRect(0, 0, size.width, size.height)] autorelease];
    [scroll setHasVerticalScroller:YES];
    [scroll setAutohidesScrollers:YES];
    [scroll setBorderType:NSNoBorder];
    [scroll setDrawsBackground:NO];

    const NSSize room = [scroll contentSize];
    const CGFloat wanted = kTop + kHeading + kRow * static_cast<CGFloat>(lines.size()) + kTop;
    const CGFloat height = std::max(room.height, wanted);
    SummaryRows* const rows =
        [[[SummaryRows alloc] initWithFrame:NSMakeRect(0, 0, room.width, height)] autorelease];

    NSFont* const plain = [NSFont systemFontOfSize:12];
    [rows addSubview:text(title, NSMakeRect(0, kTop, room.width, kRow), NSCenterTextAlignment,
                          [NSFont boldSystemFontOfSize:13])];
    const CGFloat middle = floor(room.width * 0.45);
    CGFloat y = kTop + kHeading;
    for (const SummaryLine& line : lines) {
        [rows addSubview:text(toNSString(filled(tr("{1}:"), {line.title})),
                              NSMakeRect(0, y, middle, kRow), NSRightTextAlignment, plain)];
        [rows addSubview:text(toNSString(line.value),
                              NSMakeRect(middle + kGap, y, room.width - middle - kGap, kRow),
                              NSLeftTextAlignment, plain)];
        y += kRow;
    }
    [scroll setDocumentView:rows];
    return scroll;
}

} // namespace dialog
