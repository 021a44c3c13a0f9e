// InkOnTape.hpp - a document's ink as it looks on the tape, pixel by pixel.
#pragma once

#include "dialog/theme/Palette.hpp"

#include <cstdint>
#include <vector>

namespace dialog {

// Red, green, blue and 255 of each pixel, row by row: black that lets the tape through where it is
// faint, and beneath it an edge, so many pixels wide, that tells where the document ends.  `ink` is
// 0 (none) to 255 of columns times rows pixels; with another number of them the result is empty.
std::vector<std::uint8_t> inkOnTape(const std::vector<std::uint8_t>& ink, int columns, int rows,
                                    const Color& tape, const Color& edge, int edgeWidth);

} // namespace dialog
