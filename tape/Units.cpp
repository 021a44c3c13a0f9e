#include "tape/Units.hpp"

#include <cmath>
#include <limits>

namespace tape {

double inchesFromMillimetres(double millimetres) noexcept
{
    return millimetres * kInchesPerMillimetre;
}

double millimetresFromInches(double inches) noexcept
{
    return inches / kInchesPerMillimetre;
}

double millimetresFromPoints(double points) noexcept
{
    // Two divisions, in this order: the last bit decides how a length at a tenth's edge is shown.
    return points / kPointsPerInch / kInchesPerMillimetre;
}

std::intptr_t roundHalfAwayFromZero(double value) noexcept
{
    if (std::isnan(value))
        return 0;
    constexpr auto least = std::numeric_limits<std::intptr_t>::min();
    constexpr auto greatest = std::numeric_limits<std::intptr_t>::max();
    // 2^63 is exact in double precision while the greatest integer is not.
    const double limit = -static_cast<double>(least);
    if (value >= limit)
        return greatest;
    if (value < -limit)
        return least;
    const auto whole = static_cast<std::intptr_t>(value);
    const double fraction = value - static_cast<double>(whole);
    if (fraction >= 0.5)
        return whole + 1;
    if (fraction <= -0.5)
        return whole - 1;
    return whole;
}

} // namespace tape
