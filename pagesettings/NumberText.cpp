#include "pagesettings/NumberText.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace pagesettings {

NumberText fixedText(double value, int decimals) noexcept
{
    NumberText text;
    char* const begin = text.characters_.data();
    // The last byte stays the terminator; the longest double has 309 digits before the point.
    char* const end = begin + text.characters_.size() - 1;
    const auto written = std::to_chars(begin, end, value, std::chars_format::fixed, decimals);
    text.size_ = static_cast<std::size_t>(written.ptr - begin);
    return text;
}

NumberText wholeText(std::int32_t value) noexcept
{
    NumberText text;
    char* const begin = text.characters_.data();
    const auto written = std::to_chars(begin, begin + text.characters_.size() - 1, value);
    text.size_ = static_cast<std::size_t>(written.ptr - begin);
    return text;
}

static bool isSpace(char c) noexcept
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

static bool isDigit(char c) noexcept
{
    return c >= '0' && c <= '9';
}

// Whether an unsigned decimal number that no double can hold is huge rather than tiny.
static bool isAboveOne(std::string_view number) noexcept
{
    const std::size_t mark = number.find_first_of("eE");
    const std::string_view digits = number.substr(0, mark);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t leading = std::min(digits.find_first_not_of("0."), digits.size());
    std::int64_t magnitude = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(leading);
    if (mark != std::string_view::npos) {
        std::string_view exponent = number.substr(mark + 1);
        const bool negative = exponent.starts_with('-');
        if (negative || exponent.starts_with('+'))
            exponent.remove_prefix(1);
        std::int64_t power = 0;
        const auto read =
            std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
        if (read.ec == std::errc::result_out_of_range)
            return !negative;
        // No text is so long that its digits would outweigh this.
        constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max() / 2;
        power = std::min(power, most);
        magnitude += negative ? -power : power;
    }
    return magnitude > 0;
}

double leadingDouble(std::string_view text) noexcept
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);

    const std::size_t firstDigit = text.starts_with('.') ? 1 : 0;
    if (text.size() <= firstDigit || !isDigit(text[firstDigit]))
        return 0;

    double value = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
    if (read.ec == std::errc::result_out_of_range) {
        const auto length = static_cast<std::size_t>(read.ptr - text.data());
        value = isAboveOne(text.substr(0, length)) ? std::numeric_limits<double>::infinity() : 0;
    }
    return negative ? -value : value;
}

float leadingFloat(std::string_view text) noexcept
{
    return narrowed(leadingDouble(text));
}

float narrowed(double value) noexcept
{
    // Beyond single precision the cast alone would be undefined.
    constexpr double greatest = std::numeric_limits<float>::max();
    if (value > greatest)
        return std::numeric_limits<float>::infinity();
    if (value < -greatest)
        return -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

std::int32_t truncated(double value) noexcept
{
    constexpr auto least = std::numeric_limits<std::int32_t>::min();
    constexpr auto greatest = std::numeric_limits<std::int32_t>::max();
    if (std::isnan(value))
        return 0;
    if (value >= greatest)
        return greatest;
    if (value <= least)
        return least;
    return static_cast<std::int32_t>(value);
}

std::int32_t roundedUp(double value) noexcept
{
    return truncated(std::ceil(value));
}

double roundedUpToTenths(float value) noexcept
{
    return static_cast<double>(std::ceil(value * 10.0f)) / 10.0;
}

} // namespace pagesettings
