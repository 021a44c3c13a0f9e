#include "dialog/WantedLength.hpp"

#include <charconv>
#include <cmath>

namespace dialog {

std::optional<double> parseMillimetres(std::string_view text) noexcept
{
    double number = 0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || end != text.data() + text.size() || !std::isfinite(number) ||
        number <= 0) {
        return std::nullopt;
    }
    return number;
}

double paperPoints(double millimetres) noexcept
{
    return millimetres * 0.0393701 * 72.0;
}

} // namespace dialog
