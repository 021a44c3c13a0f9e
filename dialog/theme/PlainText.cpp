#include "dialog/theme/PlainText.hpp"

#include <algorithm>
#include <iterator>

namespace dialog {

namespace {

struct Span
{
    char16_t first;
    char16_t last;
};

// In rising order.
constexpr Span kPlain[] = {
    {0x0020, 0x007E}, // ASCII
    {0x00A1, 0x00AC}, // Latin, without the space that does not break and the hidden hyphen
    {0x00AE, 0x024F}, {0x0391, 0x03A9}, // Greek
    {0x03B1, 0x03C9}, {0x0410, 0x044F}, // Cyrillic
    {0x2013, 0x2014},                   // dashes, quotation marks, dots
    {0x2018, 0x201E}, {0x2022, 0x2022}, {0x2026, 0x2026}, {0x20AC, 0x20AC}, {0x2122, 0x2122},
    {0x2190, 0x2193}, {0x2212, 0x2212}, {0x3001, 0x3002}, // Japanese, Chinese, Korean
    {0x3041, 0x3096}, {0x30A1, 0x30FC}, {0x4E00, 0x9FA5}, {0xAC00, 0xD7A3}, {0xFF01, 0xFF5E},
};

bool isPlain(char16_t letter) noexcept
{
    if (letter <= kPlain[0].last) {
        return letter >= kPlain[0].first;
    }
    const Span* const span =
        std::lower_bound(std::begin(kPlain), std::end(kPlain), letter,
                         [](const Span& one, char16_t wanted) { return one.last < wanted; });
    return span != std::end(kPlain) && letter >= span->first;
}

// The toolkit writes these pairs as one letter where the font has it.
bool isLigature(char16_t first, char16_t second) noexcept
{
    return first == u'f' && (second == u'f' || second == u'i' || second == u'l');
}

} // namespace

bool isPlainLine(std::u16string_view text) noexcept
{
    return !text.empty() && text.size() <= kLongestPlainLine && text.front() != u' ' &&
           text.back() != u' ' && std::all_of(text.begin(), text.end(), isPlain) &&
           std::adjacent_find(text.begin(), text.end(), isLigature) == text.end();
}

double lineStart(double lineWidth, double roomWidth, Alignment alignment) noexcept
{
    switch (alignment) {
    case Alignment::Center:
        return (roomWidth - lineWidth) / 2;
    case Alignment::Right:
        return roomWidth - lineWidth;
    default:
        return 0;
    }
}

} // namespace dialog
