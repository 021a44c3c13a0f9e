#include "dialog/preview/FieldValues.hpp"

#include <charconv>
#include <cmath>

#include "pagesettings/DisplayText.hpp"

namespace dialog {

namespace {

// In the panel's unit.
std::optional<double> number(std::string_view text) noexcept
{
    while (!text.empty() && text.front() == ' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == ' ') {
        text.remove_suffix(1);
    }
    double value = 0;
    const auto [end, problem] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (problem != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
        return std::nullopt;
    }
    return value;
}

std::optional<double> within(std::string_view text, float minimum, float maximum,
                             const LengthRules& rules) noexcept
{
    const std::optional<double> value = number(text);
    if (!value || pagesettings::limitInUnit(minimum, rules.unit) > static_cast<float>(*value) ||
        static_cast<float>(*value) > pagesettings::limitInUnit(maximum, rules.unit)) {
        return std::nullopt;
    }
    return pagesettings::millimetresShown(*value, rules.unit);
}

bool standsFor(std::string_view text, double told, const LengthRules& rules) noexcept
{
    // What is told is rounded to a tenth, or to a whole number, in either direction.
    const double rounding = rules.wholeNumbers ? 1.01 : 0.11;
    const std::optional<double> value = number(text);
    return value && std::abs(pagesettings::millimetresShown(*value, rules.unit) - told) <= rounding;
}

} // namespace

std::optional<double> lengthFromField(std::string_view text, const LengthRules& rules) noexcept
{
    return within(text, rules.limits.minLength, rules.limits.maxLength, rules);
}

std::optional<double> marginFromField(std::string_view text, const LengthRules& rules) noexcept
{
    return within(text, rules.limits.minMargin, rules.limits.maxMargin, rules);
}

FieldPlaces findFields(std::span<const std::string> texts, const LengthAndMargin& told,
                       const LengthRules& rules) noexcept
{
    FieldPlaces places;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!places.length && standsFor(texts[i], told.length, rules)) {
            places.length = i;
        } else if (!places.margin && standsFor(texts[i], told.margin, rules)) {
            places.margin = i;
        }
    }
    return places;
}

LengthAndMargin valuesToShow(std::span<const std::string> texts, const FieldPlaces& places,
                             const LengthAndMargin& last, const LengthRules& rules) noexcept
{
    LengthAndMargin values = last;
    if (places.length && *places.length < texts.size()) {
        values.length = lengthFromField(texts[*places.length], rules).value_or(last.length);
    }
    if (places.margin && *places.margin < texts.size()) {
        values.margin = marginFromField(texts[*places.margin], rules).value_or(last.margin);
    }
    return 2 * values.margin <= values.length ? values : last;
}

} // namespace dialog
