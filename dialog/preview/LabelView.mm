#include "dialog/preview/LabelView.h"

#include "dialog/Text.h"
#include "dialog/preview/InkOnTape.hpp"
#include "dialog/theme/Drawing.h"
#include "dialog/theme/TapeTheme.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr CGFloat kNumberSize = 9;
constexpr CGFloat kMajorTick = 7;
constexpr CGFloat kMinorTick = 4;
constexpr CGFloat kNumberTop = 8; // below the ruler's line
constexpr CGFloat kUnitRise = 3;  // beside the ticks, above the last number
constexpr CGFloat kLargeText = 64;
constexpr CGFloat kCutMark = 3;
constexpr CGFloat kVeil = 0.72; // over what is not printed

NSRect toRect(const dialog::Frame& frame)
{
    return NSMakeRect(frame.x, frame.y, frame.width, frame.height);
}

// Of so many pixels, red, green, blue and 255 each.  The caller owns it.
NSBitmapImageRep* newPicture(const std::vector<std::uint8_t>& pixels, int columns, int rows)
{
    if (pixels.empty()) {
        return nil;
    }
    NSBitmapImageRep* const image =
        [[NSBitmapImageRep alloc] initWithBitmapDataPlanes:NULL pixelsWide:columns pixelsHigh:rows
                                             bitsPerSample:8
                                           samplesPerPixel:4
                                                  hasAlpha:YES
                                                  isPlanar:NO
                                            colorSpaceName:NSCalibratedRGBColorSpace
                                               bytesPerRow:columns * 4
                                              bitsPerPixel:32];
    std::copy(pixels.begin(), pixels.end(), [image bitmapData]);
    return image;
}

} // namespace

@interface LabelView (Drawing)
- (void)drawTape;
- (void)drawDocument;
- (void)drawInk;
- (void)drawText;
- (void)drawBlank;
- (void)drawRuler;
@end

@implementation LabelView

+ (Class)cellClass
{
    return [NSActionCell class];
}

- (void)dealloc
{
    [pixels_ release];
    [super dealloc];
}

- (BOOL)isFlipped
{
    return YES;
}

// So that a change of the label draws nothing else anew.
- (BOOL)isOpaque
{
    return YES;
}

- (BOOL)acceptsFirstResponder
{
    return NO;
}

- (void)mouseDown:(NSEvent*)event
{
}

- (void)setDocument:(std::shared_ptr<const dialog::DocumentPicture>)document
{
    document_ = std::move(document);
    [pixels_ release];
    pixels_ = nil;
    [self setNeedsDisplay:YES];
}

- (void)show:(const std::optional<dialog::PictureLayout>&)layout
       place:(const dialog::Placement&)place
        unit:(const std::string&)unit
    sentence:(NSString*)sentence
{
    if (![[[self cell] stringValue] isEqualToString:sentence]) {
        [[self cell] setStringValue:sentence];
        [self setToolTip:[sentence length] == 0 ? nil : sentence];
    }
    if (layout_ != layout || place_ != place || unit_ != unit) {
        layout_ = layout;
        place_ = place;
        unit_ = unit;
        [self setNeedsDisplay:YES];
    }
}

- (void)drawRect:(NSRect)dirty
{
    dialog::fillRect(dirty, dialog::Role::Window);
    if (!layout_) {
        return;
    }
    [self drawTape];
    [NSGraphicsContext saveGraphicsState];
    NSRectClip(dialog::onPixels(toRect(layout_->tape), self));
    [self drawDocument];
    [self drawBlank];
    [NSGraphicsContext restoreGraphicsState];
    const NSRect tape = dialog::onPixels(toRect(layout_->tape), self);
    const CGFloat line = dialog::thinLine(self);
    dialog::strokeInside(NSInsetRect(tape, -line, -line), 0, line, dialog::Role::Border);
    if (layout_->documentIsCut) {
        dialog::fillRect(dialog::onPixels(NSMakeRect(NSMaxX(tape), NSMinY(tape) - kCutMark,
                                                     kCutMark, NSHeight(tape) + 2 * kCutMark),
                                          self),
                         dialog::Role::Failure);
    }
    [self drawRuler];
}

- (void)drawTape
{
    dialog::fillRect(dialog::onPixels(toRect(layout_->tape), self), dialog::Role::Tape);
}

- (void)drawDocument
{
    if (!document_ || NSIsEmptyRect(toRect(layout_->document))) {
        return;
    }
    if (document_->kind != dialog::PictureKind::Text) {
        [self drawInk];
        return;
    }
    // A page is white where the tape is: only its edge tells where it lies.
    dialog::strokeInside(dialog::onPixels(toRect(layout_->document), self), 0,
                         dialog::thinLine(self), dialog::Role::TapeBlank);
    [self drawText];
}

- (void)drawInk
{
    const NSRect frame = dialog::onPixels(toRect(layout_->document), self);
    const CGFloat scale = dialog::pixelsPerPoint(self);
    const int columns = static_cast<int>(std::lround(NSWidth(frame) * scale));
    const int rows = static_cast<int>(std::lround(NSHeight(frame) * scale));
    if (columns < 1 || rows < 1) {
        return;
    }
    if (pixels_ == nil || [pixels_ pixelsWide] != columns || [pixels_ pixelsHigh] != rows ||
        pixelsTurned_ != place_.turned) {
        [pixels_ release];
        pixels_ = newPicture(
            dialog::inkOnTape(dialog::resampled(*document_, columns, rows, place_.turned), columns,
                              rows, dialog::themeValue(dialog::Role::Tape),
                              dialog::themeValue(dialog::Role::TapeBlank),
                              static_cast<int>(std::lround(dialog::thinLine(self) * scale))),
            columns, rows);
        pixelsTurned_ = place_.turned;
    }
    // The toolkit makes a window for a picture that lets through what is behind it, or that a view
    // counting from the top wants upright: this one is opaque, and turned here.
    [NSGraphicsContext saveGraphicsState];
    NSAffineTransform* const transform = [NSAffineTransform transform];
    [transform translateXBy:NSMinX(frame) yBy:NSMaxY(frame)];
    [transform scaleXBy:1 yBy:-1];
    [transform concat];
    [[NSGraphicsContext currentContext] setImageInterpolation:NSImageInterpolationNone];
    [pixels_ drawInRect:NSMakeRect(0, 0, NSWidth(frame), NSHeight(frame))];
    [NSGraphicsContext restoreGraphicsState];
}

- (void)drawText
{
    const dialog::TextSize text = dialog::measured(document_->text);
    const NSRect frame = toRect(layout_->document);
    if (text.columns == 0) {
        return;
    }
    // Drawn large and scaled down: small letters stand on whole pixels and would run apart.
    NSDictionary* const attributes = @{
        NSFontAttributeName : [NSFont userFixedPitchFontOfSize:kLargeText],
        NSForegroundColorAttributeName : dialog::themeColor(dialog::Role::Ink)
    };
    const NSSize letter = [@"M" sizeWithAttributes:attributes];
    const CGFloat scale = NSWidth(frame) / static_cast<CGFloat>(text.columns) / letter.width;
    const CGFloat line = NSHeight(frame) / static_cast<CGFloat>(text.lines.size()) / scale;
    [NSGraphicsContext saveGraphicsState];
    NSAffineTransform* const transform = [NSAffineTransform transform];
    [transform translateXBy:NSMinX(frame) yBy:NSMinY(frame)];
    [transform scaleBy:scale];
    [transform concat];
    CGFloat y = (line - letter.height) / 2;
    for (const std::string_view words : text.lines) {
        [dialog::toNSString(words) drawAtPoint:NSMakePoint(0, y) withAttributes:attributes];
        y += line;
    }
    [NSGraphicsContext restoreGraphicsState];
}

// What comes to lie where nothing is printed shines through.
- (void)drawBlank
{
    [[dialog::themeColor(dialog::Role::TapeBlank) colorWithAlphaComponent:kVeil] set];
    for (const dialog::Frame& frame :
         {layout_->leftMargin, layout_->rightMargin, layout_->stripAbove, layout_->stripBelow}) {
        NSRectFillUsingOperation(dialog::onPixels(toRect(frame), self), NSCompositeSourceOver);
    }
}

- (void)drawRuler
{
    const CGFloat line = dialog::thinLine(self);
    const CGFloat top = layout_->rulerTop;
    const NSRect tape = toRect(layout_->tape);
    const dialog::PixelGrid grid(self);
    dialog::fillRect(grid.snapped(NSMakeRect(NSMinX(tape), top, NSWidth(tape) + line, line)),
                     dialog::Role::Border);
    NSDictionary* const attributes = @{
        NSFontAttributeName : [NSFont systemFontOfSize:kNumberSize],
        NSForegroundColorAttributeName : dialog::themeColor(dialog::Role::TextDisabled)
    };
    // In one path: each of many is the price of one.
    NSBezierPath* const ticks = [NSBezierPath bezierPath];
    for (const dialog::Tick& tick : layout_->ticks) {
        const CGFloat height = tick.kind == dialog::TickKind::Major ? kMajorTick : kMinorTick;
        [ticks appendBezierPathWithRect:grid.snapped(NSMakeRect(tick.x, top, line, height))];
    }
    [dialog::themeColor(dialog::Role::Border) set];
    [ticks fill];
    for (const dialog::Tick& tick : layout_->ticks) {
        if (tick.number.empty()) {
            continue;
        }
        NSString* const number = dialog::toNSString(tick.number);
        const auto width = widths_.try_emplace(tick.number, -1).first;
        if (width->second < 0) {
            width->second = [number sizeWithAttributes:attributes].width;
        }
        [number drawAtPoint:NSMakePoint(tick.x - width->second / 2, top + kNumberTop)
             withAttributes:attributes];
    }
    [dialog::toNSString(unit_) drawAtPoint:NSMakePoint(layout_->unitLeft, top - kUnitRise)
                            withAttributes:attributes];
}

@end
