#include "dialog/preview/InkOnTape.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace dialog {

namespace {

using Pixel = std::array<std::uint8_t, 4>;

// What 0 to 255 ink leaves of a part of a colour, to the nearest.
std::uint8_t faded(std::uint8_t part, unsigned ink)
{
    return static_cast<std::uint8_t>((part * (255 - ink) + 127) / 255);
}

// A colour under 0 to 255 ink.
std::array<Pixel, 256> inked(const Color& color)
{
    std::array<Pixel, 256> pixels{};
    for (unsigned ink = 0; ink < pixels.size(); ++ink) {
        pixels[ink] = {faded(color.red, ink), faded(color.green, ink), faded(color.blue, ink), 255};
    }
    return pixels;
}

// Ink from `from` to `end`, drawn at `to`; where the next pixel goes.
std::uint8_t* put(const std::array<Pixel, 256>& on, const std::uint8_t* from,
                  const std::uint8_t* end, std::uint8_t* to)
{
    for (; from < end; ++from, to += sizeof(Pixel)) {
        std::memcpy(to, &on[*from], sizeof(Pixel));
    }
    return to;
}

} // namespace

std::vector<std::uint8_t> inkOnTape(const std::vector<std::uint8_t>& ink, int columns, int rows,
                                    const Color& tape, const Color& edge, int edgeWidth)
{
    if (columns <= 0 || rows <= 0 ||
        ink.size() != static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {
        return {};
    }
    const std::array<Pixel, 256> onTape = inked(tape);
    const std::array<Pixel, 256> onEdge = inked(edge);
    std::vector<std::uint8_t> pixels(ink.size() * sizeof(Pixel));
    std::uint8_t* to = pixels.data();
    for (int y = 0; y < rows; ++y) {
        const bool isEdgeRow = std::min(y, rows - 1 - y) < edgeWidth;
        const int left = isEdgeRow ? columns : std::clamp(edgeWidth, 0, columns);
        const int right = std::max(left, columns - std::max(edgeWidth, 0));
        const std::uint8_t* const row = ink.data() + static_cast<std::ptrdiff_t>(y) * columns;
        to = put(onEdge, row, row + left, to);
        to = put(onTape, row + left, row + right, to);
        to = put(onEdge, row + right, row + columns, to);
    }
    return pixels;
}

} // namespace dialog
