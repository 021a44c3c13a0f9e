// PictureLayout.hpp - the label on screen: everything in it as rectangles, to one scale.
//
// Points; the origin is the upper left corner of the room, y grows downwards.  Plain C++.
#pragma once

#include "dialog/Layout.hpp"
#include "dialog/preview/Label.hpp"
#include "dialog/preview/Ruler.hpp"

#include <optional>
#include <vector>

namespace dialog {

struct PictureLayout
{
    double scale = 0; // points in a millimetre
    Frame tape;
    Frame leftMargin, rightMargin; // as high as the tape
    Frame stripAbove, stripBelow;  // between the margins
    Frame document;                // may reach over the tape's edges, where nothing is printed
    bool documentIsCut = false;    // at the label's right end
    double rulerTop = 0;
    std::vector<Tick> ticks; // x from the room's left
    double unitLeft = 0;     // where the unit's name stands, beside the ruler

    bool operator==(const PictureLayout&) const = default;
};

// How high ruler and numbers are.
inline constexpr double kRulerHeight = 24;

// The largest picture that the room takes, in its middle; no value when the label is not drawable
// or the room holds nothing.  `place` is nullptr where there is no document.
std::optional<PictureLayout> layOutPicture(Size room, const Label& label, const Placement* place,
                                           pagesettings::Unit unit);

} // namespace dialog
