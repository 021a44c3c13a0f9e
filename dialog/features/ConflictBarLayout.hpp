// ConflictBarLayout.hpp - the sentence and the button of a conflict beside each other.
//
// Points; the origin is the lower left corner.  Plain C++.
#pragma once

#include "dialog/Layout.hpp"

namespace dialog {

struct ConflictBarLayout
{
    Frame sentence;
    Frame remedy; // empty without a button
};

// `titleWidth` is that of the button's title, 0 without a button.  The sentence keeps at least two
// fifths of the width.
ConflictBarLayout layOutConflictBar(Size bar, double titleWidth) noexcept;

// The sentence alone in the middle of its place's height.
Frame sentenceInTheMiddle(const Frame& place, double textHeight) noexcept;

// `textHeight` is that of the wrapped sentence.  Two lines at least, four at most.
double conflictBarHeight(double textHeight) noexcept;

} // namespace dialog
