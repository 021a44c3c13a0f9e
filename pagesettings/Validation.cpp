#include "pagesettings/Validation.hpp"

#include "pagesettings/DisplayText.hpp"
#include "tape/Units.hpp"

#include <cmath>

namespace pagesettings {

// How much of a hundredth of an inch is noise of the arithmetic and not the user's: a millionth for
// a length, a billionth for a margin, whose edge must never be cut short.
static constexpr double kLengthNoise = 1'000'000;
static constexpr double kMarginNoise = 1'000'000'000;

// Inside the limits the entry stays in double precision; outside it is what the limit's label says,
// so that a clamped entry and the label agree to the last digit.
static double clampedInches(FieldValue entry, float minimum, float maximum) noexcept
{
    const NumberText minText = inchText(minimum);
    const NumberText maxText = inchText(maximum);
    if (leadingFloat(minText.view()) > entry.asFloat)
        return leadingDouble(minText.view());
    if (entry.asFloat > leadingFloat(maxText.view()))
        return leadingDouble(maxText.view());
    return entry.asDouble;
}

static Correction roundedUpToHundredths(double inches, double noise) noexcept
{
    const double hundredths = std::ceil(std::floor(inches * 100 * noise) / noise) / 100;
    return {twoDecimalText(hundredths), hundredths};
}

static Correction roundedUpToTenthsInSingle(float millimetres) noexcept
{
    const float tenths = std::ceil(millimetres * 10.0f) / 10.0f;
    return {oneDecimalText(tenths), tenths};
}

static Correction roundedUpToWhole(double millimetres) noexcept
{
    return {wholeText(roundedUp(millimetres)), std::ceil(millimetres)};
}

bool mayStandWhileTyping(std::uint8_t typed, float length, float margin,
                         const PanelRules& rules) noexcept
{
    if (typed == 0)
        return false;
    if (typed != 1)
        return true;
    return !(length > limitInUnit(rules.limits.maxLength, rules.unit) ||
             margin > limitInUnit(rules.limits.maxMargin, rules.unit));
}

Correction correctedLength(FieldValue length, const PanelRules& rules) noexcept
{
    const float minimum = rules.limits.minLength;
    const float maximum = rules.limits.maxLength;
    if (rules.unit == Unit::Inches)
        return roundedUpToHundredths(clampedInches(length, minimum, maximum), kLengthNoise);

    const float nearest = clamped(length.asFloat, minimum, maximum);
    if (rules.wholeLengths)
        return roundedUpToWhole(nearest == length.asFloat ? length.asDouble : nearest);
    return roundedUpToTenthsInSingle(nearest);
}

Correction correctedMargin(FieldValue margin, const PanelRules& rules) noexcept
{
    const float minimum = rules.limits.minMargin;
    const float maximum = rules.limits.maxMargin;
    if (rules.unit == Unit::Inches)
        return roundedUpToHundredths(clampedInches(margin, minimum, maximum), kMarginNoise);

    const float nearest = clamped(margin.asFloat, minimum, maximum);
    return rules.wholeMargins ? roundedUpToWhole(nearest) : roundedUpToTenthsInSingle(nearest);
}

bool isMarginTooWide(double margin, float length) noexcept
{
    // In single precision on both sides: the field's 0.7 is a little less than seven tenths, and a
    // margin of exactly half must not be found wider for that.
    return narrowed(margin) > length * 0.5f;
}

Correction lengthForMargin(double margin, double dotMillimetres, const PanelRules& rules) noexcept
{
    if (rules.unit == Unit::Inches) {
        const double length = margin + margin + tape::inchesFromMillimetres(dotMillimetres);
        return {twoDecimalText(length), length};
    }
    const double half = roundedUpToTenths(narrowed(margin));
    const double length = half + half + dotMillimetres;
    // The margin's whole-number rule, not the length's: the margin was the user's wish here.
    return rules.wholeMargins ? roundedUpToWhole(length)
                              : roundedUpToTenthsInSingle(narrowed(length));
}

} // namespace pagesettings
