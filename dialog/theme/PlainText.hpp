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

// The most units, less than `length`, of which `fits` says yes, 0 when of none.  What is more than
// units that do not fit does not fit either.
template <typename Fits>
std::size_t mostThatFit(std::size_t length, const Fits& fits)
{
    std::size_t most = 0;
    std::size_t tooMany = length;
    while (tooMany > most + 1) {
        const std::size_t tried = most + (tooMany - most) / 2;
        (fits(tried) ? most : tooMany) = tried;
    }
    return most;
}

} // namespace dialog
