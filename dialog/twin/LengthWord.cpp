#include "dialog/twin/LengthWord.hpp"

#include "pagesettings/NumberText.hpp"
#include "tape/Units.hpp"

#include <charconv>

namespace dialog {

namespace {

using pagesettings::Unit;

// More digits than any length needs, and few enough for every number to be finite.
constexpr std::size_t kMostCharacters = 30;

std::optional<Unit> unitNamed(std::string_view name) noexcept
{
    if (name == "mm") {
        return Unit::Millimetres;
    }
    if (name == "in" || name == "inch" || name == "\"") {
        return Unit::Inches;
    }
    return std::nullopt;
}

} // namespace

std::optional<LengthWord> parseLength(std::string_view text)
{
    const std::size_t end = std::min(text.find_first_not_of("0123456789."), text.size());
    const std::string_view number = text.substr(0, end);
    const bool hasDigit = number.find_first_of("0123456789") != number.npos;
    const bool hasTwoDots = number.find('.') != number.rfind('.');
    if (!hasDigit || hasTwoDots || number.size() > kMostCharacters) {
        return std::nullopt;
    }
    LengthWord word{std::string(number), {}};
    std::string_view rest = text.substr(end);
    if (rest.empty()) {
        return word;
    }
    rest.remove_prefix(std::min(rest.find_first_not_of(' '), rest.size()));
    word.unit = unitNamed(rest);
    return word.unit ? std::optional(word) : std::nullopt;
}

std::string typedText(const LengthWord& word, Unit unit)
{
    if (word.unit.value_or(unit) == unit) {
        return word.number;
    }
    const double number = pagesettings::leadingDouble(word.number);
    const double converted = unit == Unit::Inches ? tape::inchesFromMillimetres(number)
                                                  : tape::millimetresFromInches(number);
    char buffer[400];
    const auto written =
        std::to_chars(buffer, buffer + sizeof buffer, converted, std::chars_format::fixed);
    return std::string(buffer, written.ptr);
}

std::string shownLength(const LengthWord& word, Unit unit)
{
    return word.number + " " + std::string(unitName(word.unit.value_or(unit)));
}

std::string_view unitName(Unit unit) noexcept
{
    return unit == Unit::Inches ? "in" : "mm";
}

} // namespace dialog
