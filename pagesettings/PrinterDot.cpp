#include "pagesettings/PrinterDot.hpp"

#include "tape/Units.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>

namespace pagesettings {

static constexpr double kMillimetresPerInch =
    25.4; // the true inch: a dot is the printer's, not ours
static constexpr double kLeastInches = 0.01;

static char lowered(char c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

static std::size_t findIgnoringCase(std::string_view text, std::string_view word) noexcept
{
    const auto found = std::search(text.begin(), text.end(), word.begin(), word.end(),
                                   [](char a, char b) { return lowered(a) == lowered(b); });
    return found == text.end() ? std::string_view::npos
                               : static_cast<std::size_t>(found - text.begin());
}

static std::uint32_t verticalDotsPerInch(std::string_view keyword) noexcept
{
    const std::size_t x = findIgnoringCase(keyword, "x");
    if (x == std::string_view::npos || findIgnoringCase(keyword, "dpi") == std::string_view::npos)
        return 0;
    const std::string_view number = keyword.substr(x + 1);
    std::uint32_t dots = 0;
    const auto read = std::from_chars(number.data(), number.data() + number.size(), dots);
    return read.ec == std::errc::result_out_of_range ? std::numeric_limits<std::uint32_t>::max()
                                                     : dots;
}

double leastStepMillimetres(const PanelRules& rules) noexcept
{
    if (rules.unit == Unit::Inches)
        return tape::millimetresFromInches(kLeastInches);
    return rules.wholeMargins ? 1.0 : 0.1;
}

double dotMillimetres(std::string_view resolutionKeyword, const PanelRules& rules) noexcept
{
    const std::uint32_t dots = verticalDotsPerInch(resolutionKeyword);
    const double dot =
        dots == 0 ? std::numeric_limits<double>::infinity() : kMillimetresPerInch / dots;
    if (rules.unit == Unit::Inches)
        return tape::inchesFromMillimetres(dot) < kLeastInches ? leastStepMillimetres(rules) : dot;
    return std::max(leastStepMillimetres(rules), dot);
}

} // namespace pagesettings
