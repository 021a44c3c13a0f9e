// Limits.hpp - the PPD's limits and units for length and margin, in the panel's unit too.
//
// A PPD states its limits in millimetres.  The panel shows millimetres or inches (the unit), and
// millimetres with one decimal or as whole numbers, for length and margin apart.  Plain C++.
#pragma once

#include "pagesettings/NumberText.hpp"

#include <cstdint>
#include <string_view>

namespace pagesettings {

enum class Unit : std::int32_t
{
    Millimetres = 0,
    Inches = 1
};

// Any number but 0 is inches.
Unit unitFromNumber(std::int32_t number) noexcept;

// "inch" is inches, every other text millimetres.
Unit unitFromAttribute(std::string_view value) noexcept;

// "True" and nothing else.
bool isTrue(std::string_view value) noexcept;

// In millimetres, as the PPD states them: unchecked, 0 where it states none.
struct Limits
{
    float minLength = 0;
    float maxLength = 0;
    float minMargin = 0;
    float maxMargin = 0;
};

// Into the limits.  The minimum is tried first, so it wins where a PPD has them crossed.
template <class Number>
Number clamped(Number value, float minimum, float maximum) noexcept
{
    if (minimum > value)
        return minimum;
    if (value > maximum)
        return maximum;
    return value;
}

// A limit as it counts in the panel's unit: in inches it is what its label says, to a hundredth.
float limitInUnit(float millimetres, Unit unit) noexcept;

// What a slider and the labels at its ends show.
struct SliderRange
{
    NumberText minText;
    NumberText maxText;
    double minimum = 0;
    double maximum = 0;
    double altIncrement = 0; // about one millimetre
};

SliderRange sliderRange(float minimum, float maximum, Unit unit, bool wholeNumbers) noexcept;

} // namespace pagesettings
