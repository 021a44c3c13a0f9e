#include "dialog/theme/Drawing.h"

#include "dialog/theme/Metrics.hpp"
#include "dialog/theme/PlainText.hpp"
#include "dialog/theme/TapeTheme.h"

#include <algorithm>
#include <cmath>

namespace dialog {

namespace {

NSBezierPath* rounded(NSRect rect, CGFloat radius)
{
    const CGFloat most = std::min(NSWidth(rect), NSHeight(rect)) / 2;
    const CGFloat used = std::clamp<CGFloat>(radius, 0, std::max<CGFloat>(most, 0));
    return [NSBezierPath bezierPathWithRoundedRect:rect xRadius:used yRadius:used];
}

NSRect circleRect(NSPoint center, CGFloat diameter)
{
    return NSMakeRect(center.x - diameter / 2, center.y - diameter / 2, diameter, diameter);
}

void strokeOpen(NSBezierPath* path, Role role)
{
    [path setLineWidth:1.6];
    [path setLineCapStyle:NSRoundLineCapStyle];
    [path setLineJoinStyle:NSRoundLineJoinStyle];
    [themeColor(role) set];
    [path stroke];
}

// The toolkit knows no ellipsis: it cuts, or goes on in a line that is not seen.
NSString* cut(NSString* text, NSDictionary* attributes, CGFloat width)
{
    const auto beginning = [&](std::size_t units) {
        // Not inside a letter of several units.
        const NSRange letter = [text rangeOfComposedCharacterSequenceAtIndex:units];
        return [[text substringToIndex:letter.location] stringByAppendingString:@"\u2026"];
    };
    return beginning(mostThatFit([text length], [&](std::size_t units) {
        return [beginning(units) sizeWithAttributes:attributes].width <= width;
    }));
}

} // namespace

CGFloat pixelsPerPoint(NSView* view)
{
    if ([view window] == nil) {
        return 1;
    }
    const CGFloat width = [view convertSize:NSMakeSize(1, 1) toView:nil].width;
    return width > 0 ? width : 1;
}

CGFloat thinLine(NSView* view)
{
    return hairline(pixelsPerPoint(view));
}

PixelGrid::PixelGrid(NSView* view) : isInWindow_([view window] != nil)
{
    if (isInWindow_) {
        origin_ = [view convertPoint:NSZeroPoint toView:nil];
        const bool isDownwards = [view convertPoint:NSMakePoint(0, 1) toView:nil].y < origin_.y;
        const NSSize size = [view convertSize:NSMakeSize(1, 1) toView:nil];
        scale_ = NSMakeSize(std::abs(size.width), std::abs(size.height) * (isDownwards ? -1 : 1));
    }
}

NSRect PixelGrid::snapped(NSRect rect) const
{
    if (!isInWindow_) {
        return NSIntegralRect(rect);
    }
    const CGFloat left = round(NSMinX(rect) * scale_.width + origin_.x);
    const CGFloat right = round(NSMaxX(rect) * scale_.width + origin_.x);
    const CGFloat low = round(NSMinY(rect) * scale_.height + origin_.y);
    const CGFloat high = round(NSMaxY(rect) * scale_.height + origin_.y);
    return NSMakeRect((left - origin_.x) / scale_.width, (low - origin_.y) / scale_.height,
                      (right - left) / scale_.width, (high - low) / scale_.height);
}

NSRect onPixels(NSRect rect, NSView* view)
{
    return PixelGrid(view).snapped(rect);
}

void fillRect(NSRect rect, Role role)
{
    [themeColor(role) set];
    NSRectFill(rect);
}

void fillRounded(NSRect rect, CGFloat radius, Role role)
{
    if (NSIsEmptyRect(rect)) {
        return;
    }
    [themeColor(role) set];
    [rounded(rect, radius) fill];
}

void fillCircle(NSPoint center, CGFloat diameter, Role role)
{
    [themeColor(role) set];
    [[NSBezierPath bezierPathWithOvalInRect:circleRect(center, diameter)] fill];
}

void fillBordered(NSRect rect, CGFloat radius, CGFloat border, Role fill, Role line)
{
    fillRounded(rect, radius, line);
    fillRounded(NSInsetRect(rect, border, border), radius - border, fill);
}

void strokeInside(NSRect rect, CGFloat radius, CGFloat width, Role line)
{
    const NSRect inner = NSInsetRect(rect, width, width);
    if (NSIsEmptyRect(rect)) {
        return;
    }
    NSBezierPath* const path = rounded(rect, radius);
    if (!NSIsEmptyRect(inner)) {
        [path appendBezierPath:rounded(inner, radius - width)];
    }
    [path setWindingRule:NSEvenOddWindingRule];
    [themeColor(line) set];
    [path fill];
}

void drawChevron(NSPoint center, CGFloat span, Direction direction, BOOL flipped, Role role)
{
    const CGFloat half = span / 2;
    const CGFloat depth = span / 4;
    NSBezierPath* const path = [NSBezierPath bezierPath];
    if (direction == Direction::Left || direction == Direction::Right) {
        const CGFloat tip = direction == Direction::Right ? depth : -depth;
        [path moveToPoint:NSMakePoint(center.x - tip, center.y - half)];
        [path lineToPoint:NSMakePoint(center.x + tip, center.y)];
        [path lineToPoint:NSMakePoint(center.x - tip, center.y + half)];
    } else {
        const CGFloat tip =
            (direction == Direction::Up) != static_cast<bool>(flipped) ? depth : -depth;
        [path moveToPoint:NSMakePoint(center.x - half, center.y - tip)];
        [path lineToPoint:NSMakePoint(center.x, center.y + tip)];
        [path lineToPoint:NSMakePoint(center.x + half, center.y - tip)];
    }
    strokeOpen(path, role);
}

void drawCheckMark(NSPoint center, CGFloat side, BOOL flipped, Role role)
{
    const CGFloat up = (flipped ? -1 : 1) * side;
    NSBezierPath* const path = [NSBezierPath bezierPath];
    [path moveToPoint:NSMakePoint(center.x - side * 0.38, center.y - up * 0.02)];
    [path lineToPoint:NSMakePoint(center.x - side * 0.10, center.y - up * 0.30)];
    [path lineToPoint:NSMakePoint(center.x + side * 0.40, center.y + up * 0.30)];
    strokeOpen(path, role);
}

LineDrawer::LineDrawer(NSFont* font, Role role)
{
    NSMutableParagraphStyle* const style = [[NSParagraphStyle defaultParagraphStyle] mutableCopy];
    [style setLineBreakMode:NSLineBreakByTruncatingTail];
    attributes_ = [@{
        NSFontAttributeName : font != nil ? font : [NSFont systemFontOfSize:0],
        NSForegroundColorAttributeName : themeColor(role),
        NSParagraphStyleAttributeName : style
    } retain];
    [style release];
}

LineDrawer::~LineDrawer()
{
    [attributes_ release];
}

void LineDrawer::draw(NSString* text, NSRect rect) const
{
    if ([text length] == 0 || NSIsEmptyRect(rect)) {
        return;
    }
    const NSSize size = [text sizeWithAttributes:attributes_];
    rect.origin.y += floor((NSHeight(rect) - size.height) / 2);
    rect.size.height = size.height;
    NSString* const shown =
        size.width > NSWidth(rect) ? cut(text, attributes_, NSWidth(rect)) : text;
    [shown drawInRect:rect withAttributes:attributes_];
}

void drawLine(NSString* text, NSRect rect, NSFont* font, Role role)
{
    LineDrawer(font, role).draw(text, rect);
}

} // namespace dialog
