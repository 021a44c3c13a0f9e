// PlainText.hpp - texts that are simple enough to be set without the toolkit's typesetter.
#pragma once

#include <cstddef>
#include <string_view>

namespace dialog {

enum class Alignment
{
    Left,
    Center,
    Right,
    Other, // not set here
};

// In UTF-16 units; what is longer is no line of a dialog.
inline constexpr std::size_t kLongestPlainLine = 200;

// Whether the letters of a text (UTF-16) stand one after the other from left to right, each for
// itself, in one line: no line breaks, joining or combining letters, no ligatures, nothing
// written from the right, no space at either end.  Not so of a text that is empty or longer than
// that.
bool isPlainLine(std::u16string_view text) noexcept;

// Where a line begins, both widths in points, when a line so wide stands in a room at least as
// wide.
double lineStart(double lineWidth, double roomWidth, Alignment alignment) noexcept;

} // namespace dialog
