// Label.hpp - the label that is about to be printed, and where on it the document comes to lie.
//
// Millimetres.  The tape runs from left to right as the label is read: "along" is its length,
// "across" its width.  Plain C++.
#pragma once

namespace dialog {

struct Label
{
    double width = 0;      // of the tape
    double length = 0;     // margins included
    double margin = 0;     // blank at either end
    double blankAbove = 0; // strips along the edges that the printer cannot reach
    double blankBelow = 0;

    bool operator==(const Label&) const = default;
};

// Whether there is something to draw: finite, not longer than a hundred metres, the margins no more
// than the length and the strips less than the width.
bool isDrawable(const Label& label) noexcept;

// What is to be printed, in its own upright position.
struct DocumentSize
{
    double width = 0;    // 0: it does not say how large it is, and `aspect` counts
    double height = 0;   // 0 together with the width
    double aspect = 1;   // width by height, above 0
    bool mayTurn = true; // a page may lie on its side; text may not
};

struct Placement
{
    double x = 0; // of the left end, from the label's left end; not below 0
    double y = 0; // of the upper edge, from the tape's upper edge; below 0 when it is wider
    double along = 0;
    double across = 0;
    bool turned = false;    // by a quarter, clockwise
    double share = 1;       // how large it is drawn by its own size; 0 when it has none
    double ownAcross = 0;   // what lies across the tape, before scaling; 0 when it has no size
    double beyondLabel = 0; // how much longer than the label
    double intoMargins = 0; // how far it reaches into either margin; 0 when beyond the label

    bool operator==(const Placement&) const = default;
};

// Differences up to this many millimetres are not worth a word.
inline constexpr double kNegligible = 0.25;

// A document keeps its size where it fits across the tape, turned when it fits only so; one that
// fits neither way lies with its longer side along the tape, scaled to the printable band.  One
// without a size is as large as the printable area allows.  It lies in the middle; one that is
// longer than the label begins where the label begins.
Placement placeDocument(const Label& label, const DocumentSize& document) noexcept;

} // namespace dialog
