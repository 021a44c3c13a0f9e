// Ruler.hpp - a ruler along the label, in millimetres or inches.  Plain C++.
#pragma once

#include "pagesettings/Limits.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace dialog {

enum class TickKind : std::uint8_t
{
    Minor,
    Major, // has a number
};

struct Tick
{
    double x = 0; // points from the ruler's zero
    TickKind kind = TickKind::Minor;
    std::string number; // of a major tick, without its unit

    bool operator==(const Tick&) const = default;
};

// From zero to `length` millimetres where a millimetre is `scale` points; both above 0.  Numbers
// are at least thirty points apart, ticks at least three.  Only as many numbers as lie on the
// label.
std::vector<Tick> rulerTicks(double length, double scale, pagesettings::Unit unit);

} // namespace dialog
