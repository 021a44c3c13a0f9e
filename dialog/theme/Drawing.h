// Drawing.h - shapes whose edges fall on whole pixels at any scale.
#pragma once

#include "dialog/theme/Palette.hpp"

#include <AppKit/AppKit.h>

#include <cstdint>

namespace dialog {

enum class Direction : std::uint8_t
{
    Up,
    Down,
    Left,
    Right,
};

// Pixels in a point of the view; 1 without a window.
CGFloat pixelsPerPoint(NSView* view);

// The width of a thin line in the view.
CGFloat thinLine(NSView* view);

// Where a view's points come to lie on the window's pixels.  Valid while the view stays where it
// is.
class PixelGrid
{
  public:
    explicit PixelGrid(NSView* view);
    // The rectangle with its edges moved to the nearest whole pixels.
    NSRect snapped(NSRect rect) const;

  private:
    NSPoint origin_ = {0, 0}; // of the view, in pixels of the window
    NSSize scale_ = {1, 1};   // pixels in a point; the height is negative where y grows downwards
    bool isInWindow_;
};

// One rectangle; for many of a view make the grid once.
NSRect onPixels(NSRect rect, NSView* view);

void fillRect(NSRect rect, Role role);
void fillRounded(NSRect rect, CGFloat radius, Role role);
void fillCircle(NSPoint center, CGFloat diameter, Role role);

// The border lies inside of `rect`.
void fillBordered(NSRect rect, CGFloat radius, CGFloat border, Role fill, Role line);

// Only the line, inside of `rect`.
void strokeInside(NSRect rect, CGFloat radius, CGFloat width, Role line);

// A "v" around `center`, `span` wide; `flipped` says whether y grows downwards.
void drawChevron(NSPoint center, CGFloat span, Direction direction, BOOL flipped, Role role);

// A check mark that fills a square of `side` around `center`.
void drawCheckMark(NSPoint center, CGFloat side, BOOL flipped, Role role);

// Lines of text of one font and colour, each vertically in the middle of a rectangle and cut at the
// end with an ellipsis.
class LineDrawer
{
  public:
    LineDrawer(NSFont* font, Role role); // nil for the system's
    ~LineDrawer();
    LineDrawer(const LineDrawer&) = delete;
    LineDrawer& operator=(const LineDrawer&) = delete;

    void draw(NSString* text, NSRect rect) const;

  private:
    NSDictionary* attributes_;
};

// One line.
void drawLine(NSString* text, NSRect rect, NSFont* font, Role role);

} // namespace dialog
