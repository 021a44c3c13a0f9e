#include "dialog/preview/InkOnTape.hpp"

#include <algorithm>
#include <array>

namespace dialog {

namespace {

// What 0 to 255 ink leaves of a colour's part, to the nearest.
std::array<std::uint8_t, 256> faded(std::uint8_t part)
{
    std::array<std::uint8_t, 256> left{};
    for (unsigned ink = 0; ink < left.size(); ++ink) {
        left[ink] = static_cast<std::uint8_t>((part * (255 - ink) + 127) / 255);
    }
    return left;
}

struct Fading
{
    explicit Fading(const Color& color)
        : red(faded(color.red)), green(faded(color.green)), blue(faded(color.blue))
    {
    }

    std::array<std::uint8_t, 256> red;
    std::array<std::uint8_t, 256> green;
    std::array<std::uint8_t, 256> blue;
};

} // namespace

std::vector<std::uint8_t> inkOnTape(const std::vector<std::uint8_t>& ink, int columns, int rows,
                                    const Color& tape, const Color& edge, int edgeWidth)
{
    if (columns <= 0 || rows <= 0 ||
        ink.size() != static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {
        return {};
    }
    const Fading onTape(tape);
    const Fading onEdge(edge);
    std::vector<std::uint8_t> pixels(ink.size() * 4);
    const std::uint8_t* from = ink.data();
    std::uint8_t* to = pixels.data();
    for (int y = 0; y < rows; ++y) {
        const bool isEdgeRow = std::min(y, rows - 1 - y) < edgeWidth;
        for (int x = 0; x < columns; ++x) {
            const bool isEdge = isEdgeRow || std::min(x, columns - 1 - x) < edgeWidth;
            const Fading& beneath = isEdge ? onEdge : onTape;
            to[0] = beneath.red[*from];
            to[1] = beneath.green[*from];
            to[2] = beneath.blue[*from];
            to[3] = 255;
            ++from;
            to += 4;
        }
    }
    return pixels;
}

} // namespace dialog
