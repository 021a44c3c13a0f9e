#include "pagesettings/Saving.hpp"

#include "pagesettings/DisplayText.hpp"

#include <cmath>
#include <limits>

namespace pagesettings {

ShownPaper shownPaper(double paperMillimetres, float lastShown, float fieldValue,
                      const PanelRules& rules) noexcept
{
    ShownPaper paper;
    paper.text = lengthText(paperMillimetres, rules.unit, rules.wholeLengths);
    paper.value = leadingFloat(paper.text.view());
    paper.replacesField = lastShown != paper.value && fieldValue == lastShown;
    return paper;
}

double lengthOfPaper(const NumberText& shown, const PanelRules& rules) noexcept
{
    return millimetresShown(leadingDouble(shown.view()), rules.unit);
}

double lengthOfField(FieldValue field, const PanelRules& rules) noexcept
{
    return millimetresShown(field.asDouble, rules.unit);
}

NumberText savedLengthText(double millimetres, std::int32_t tapeState,
                           const PanelRules& rules) noexcept
{
    const double length = tapeState == tape::kContinuousTape
                              ? clamped(millimetres, rules.limits.minLength, rules.limits.maxLength)
                              : millimetres;
    return millimetreLengthText(length, rules.wholeLengths);
}

double marginOfField(FieldValue field, const PanelRules& rules) noexcept
{
    return millimetresShown(field.asDouble, rules.unit);
}

double marginOfDefault(double defaultMillimetres, const PanelRules& rules) noexcept
{
    const NumberText shown =
        marginText(narrowed(defaultMillimetres), rules.unit, rules.wholeMargins);
    return millimetresShown(leadingDouble(shown.view()), rules.unit);
}

static bool isLessThanATenthAbove(float minimum, float margin) noexcept
{
    // One step of single precision lower, for 0.6 + 0.1 lies a step above 0.7 there, and a margin
    // of exactly a tenth more is the user's own.
    const float tenthAbove =
        std::nextafter(narrowed(minimum + 0.1), -std::numeric_limits<float>::infinity());
    return tenthAbove > margin;
}

NumberText savedMarginText(double millimetres, std::int32_t tapeState,
                           const PanelRules& rules) noexcept
{
    const float minimum = rules.limits.minMargin;
    double margin = millimetres;
    // Compared and rounded in single precision, the limits' own: in double a limit of 2.2 mm would
    // be 2.2000000477 and come out as 2.3.
    if (isLessThanATenthAbove(minimum, narrowed(margin)))
        margin = minimum;
    if (tapeState == tape::kContinuousTape)
        margin = clamped(margin, minimum, rules.limits.maxMargin);
    return roundedUpText(narrowed(margin), rules.wholeMargins);
}

} // namespace pagesettings
