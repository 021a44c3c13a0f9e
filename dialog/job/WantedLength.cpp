#include "dialog/job/WantedLength.hpp"

#include "tape/Units.hpp"

#include <charconv>
#include <cmath>
#include <limits>

namespace dialog {

std::optional<double> parseMargin(std::string_view text) noexcept
{
    double number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || end != text.data() + text.size() || !std::isfinite(number) ||
        std::signbit(number)) {
        return std::nullopt;
    }
    return number;
}

std::optional<double> parseMillimetres(std::string_view text) noexcept
{
    const std::optional<double> number = parseMargin(text);
    return number == 0.0 ? std::nullopt : number;
}

double paperPoints(double millimetres) noexcept
{
    double points = millimetres * tape::kInchesPerMillimetre * tape::kPointsPerInch;
    // A panel that shows whole millimetres cuts, and the way back must not end just below one.
    while (tape::millimetresFromPoints(points) < millimetres) {
        points = std::nextafter(points, std::numeric_limits<double>::infinity());
    }
    return points;
}

} // namespace dialog
