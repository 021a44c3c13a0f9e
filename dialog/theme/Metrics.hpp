// Metrics.hpp - the sizes of the dialog's look, in points, and lines that fall on whole pixels.
//
// Plain C++.
#pragma once

namespace dialog {

inline constexpr double kCornerRadius = 5;    // buttons, pop-ups
inline constexpr double kFieldRadius = 4;     // fields
inline constexpr double kGroupRadius = 8;     // boxes
inline constexpr double kFocusWidth = 2;      // the ring around what the keyboard acts on
inline constexpr double kFocusGap = 1;        // between the ring and a filled control
inline constexpr double kRadioDiameter = 14;  //
inline constexpr double kRadioDot = 6;        //
inline constexpr double kCheckBoxSide = 14;   //
inline constexpr double kSliderTrack = 4;     // thickness
inline constexpr double kSliderKnob = 14;     // diameter
inline constexpr double kScrollerWidth = 14;  //
inline constexpr double kScrollerKnob = 6;    // thickness
inline constexpr double kMenuInset = 4;       // of the highlighted item
inline constexpr double kMenuTextIndent = 24; // leaves room for the check mark
inline constexpr double kPopUpTextIndent = 9; //
inline constexpr double kPopUpChevronRoom = 24;

// A thin line's width in points where one point is `scale` pixels: a whole number of pixels, at
// least one, and never thicker than a point unless a pixel is.  A scale that is not above 0 counts
// as 1.
double hairline(double scale) noexcept;

// `length` points as a whole number of pixels, at least one, in points again.
double wholePixels(double length, double scale) noexcept;

// Where a slider's knob stands: 0 at the low end of the track to 1 at the high end.
double knobShare(double value, double low, double high) noexcept;

} // namespace dialog
