#include "dialog/theme/Palette.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace dialog {

namespace {

constexpr Color rgb(std::uint32_t hex) noexcept
{
    return {static_cast<std::uint8_t>(hex >> 16), static_cast<std::uint8_t>(hex >> 8),
            static_cast<std::uint8_t>(hex)};
}

struct Pair
{
    Color light;
    Color dark;
};

// In the order of Role.
constexpr std::array<Pair, kRoles> kPalette{{
    {rgb(0xF6F7F9), rgb(0x1E2126)}, // Window
    {rgb(0xFFFFFF), rgb(0x282C33)}, // Surface
    {rgb(0xFFFFFF), rgb(0x343941)}, // Button
    {rgb(0xE4E8EE), rgb(0x434953)}, // ButtonPressed
    {rgb(0xFFFFFF), rgb(0x2A2E35)}, // Menu
    {rgb(0x1D2129), rgb(0xE8EAED)}, // Text
    {rgb(0x676D77), rgb(0xA2A9B3)}, // TextDisabled
    {rgb(0x858C97), rgb(0x858D98)}, // Border
    {rgb(0xD3D8DF), rgb(0x40464F)}, // BorderQuiet
    {rgb(0x1B66D6), rgb(0x6AA6FF)}, // Accent
    {rgb(0x124FAA), rgb(0x93BFFF)}, // AccentPressed
    {rgb(0xFFFFFF), rgb(0x0B1524)}, // OnAccent
    {rgb(0x1B66D6), rgb(0x6AA6FF)}, // Focus
    {rgb(0xBAC1CB), rgb(0x59616C)}, // Track
    {rgb(0xC7DCFB), rgb(0x2C5596)}, // Selection
    {rgb(0x1D2129), rgb(0xFFFFFF)}, // OnSelection
    {rgb(0xB3261E), rgb(0xFF8F85)}, // Failure
    // A tape is white in a dark room too.
    {rgb(0xFFFFFF), rgb(0xECEEF1)}, // Tape
    {rgb(0xDCE3EE), rgb(0xBAC3D0)}, // TapeBlank
    {rgb(0x000000), rgb(0x000000)}, // Ink
}};

double linear(std::uint8_t channel) noexcept
{
    const double value = channel / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

} // namespace

Color color(Role role, Appearance appearance) noexcept
{
    const Pair& pair = kPalette[static_cast<std::size_t>(role)];
    return appearance == Appearance::Dark ? pair.dark : pair.light;
}

double luminance(Color color) noexcept
{
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

double contrast(Color one, Color other) noexcept
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace dialog
