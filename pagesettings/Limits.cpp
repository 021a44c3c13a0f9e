#include "pagesettings/Limits.hpp"

#include "pagesettings/DisplayText.hpp"
#include "tape/Units.hpp"

namespace pagesettings {

Unit unitFromNumber(std::int32_t number) noexcept
{
    return number == 0 ? Unit::Millimetres : Unit::Inches;
}

Unit unitFromAttribute(std::string_view value) noexcept
{
    return value == "inch" ? Unit::Inches : Unit::Millimetres;
}

bool isTrue(std::string_view value) noexcept
{
    return value == "True";
}

float limitInUnit(float millimetres, Unit unit) noexcept
{
    if (unit == Unit::Millimetres)
        return millimetres;
    return leadingFloat(inchText(millimetres).view());
}

SliderRange sliderRange(float minimum, float maximum, Unit unit, bool wholeNumbers) noexcept
{
    SliderRange range;
    if (unit == Unit::Millimetres) {
        range.minText = roundedUpText(minimum, wholeNumbers);
        range.maxText = roundedUpText(maximum, wholeNumbers);
        range.minimum = minimum;
        range.maximum = maximum;
        range.altIncrement = 1.0;
        return range;
    }
    range.minText = inchText(minimum);
    range.maxText = inchText(maximum);
    range.minimum = tape::inchesFromMillimetres(minimum);
    range.maximum = tape::inchesFromMillimetres(maximum);
    const double span = static_cast<double>(maximum) - minimum;
    range.altIncrement =
        span > 0
            ? (leadingDouble(range.maxText.view()) - leadingDouble(range.minText.view())) / span
            : tape::kInchesPerMillimetre;
    return range;
}

} // namespace pagesettings
