#include "pagesettings/DisplayText.hpp"

#include "tape/Units.hpp"

namespace pagesettings {

NumberText inchText(double millimetres) noexcept
{
    return twoDecimalText(narrowed(tape::inchesFromMillimetres(millimetres)));
}

NumberText roundedUpText(float millimetres, bool wholeNumbers) noexcept
{
    return wholeNumbers ? wholeText(roundedUp(millimetres))
                        : oneDecimalText(roundedUpToTenths(millimetres));
}

NumberText millimetreLengthText(double millimetres, bool wholeNumbers) noexcept
{
    return wholeNumbers ? wholeText(truncated(millimetres)) : oneDecimalText(millimetres);
}

NumberText lengthText(double millimetres, Unit unit, bool wholeNumbers) noexcept
{
    return unit == Unit::Inches ? inchText(millimetres)
                                : millimetreLengthText(millimetres, wholeNumbers);
}

NumberText marginText(float millimetres, Unit unit, bool wholeNumbers) noexcept
{
    return unit == Unit::Inches ? inchText(millimetres) : roundedUpText(millimetres, wholeNumbers);
}

NumberText cutTextInUnit(float value, Unit unit, bool wholeNumbers) noexcept
{
    return unit == Unit::Inches ? twoDecimalText(value) : millimetreLengthText(value, wholeNumbers);
}

NumberText roundedUpTextInUnit(float value, Unit unit, bool wholeNumbers) noexcept
{
    return unit == Unit::Inches ? twoDecimalText(value) : roundedUpText(value, wholeNumbers);
}

double millimetresShown(double value, Unit unit) noexcept
{
    return unit == Unit::Inches ? tape::millimetresFromInches(value) : value;
}

} // namespace pagesettings
