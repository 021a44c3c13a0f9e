#include "dialog/theme/Metrics.hpp"

#include <algorithm>
#include <cmath>

namespace dialog {

namespace {

double usable(double scale) noexcept
{
    return scale > 0 && std::isfinite(scale) ? scale : 1;
}

} // namespace

double hairline(double scale) noexcept
{
    const double pixels = usable(scale);
    return std::max(1.0, std::floor(pixels)) / pixels;
}

double wholePixels(double length, double scale) noexcept
{
    const double pixels = usable(scale);
    return std::max(1.0, std::round(length * pixels)) / pixels;
}

double knobShare(double value, double low, double high) noexcept
{
    if (!(high > low) || !(value > low)) {
        return 0;
    }
    return std::min((value - low) / (high - low), 1.0);
}

} // namespace dialog
