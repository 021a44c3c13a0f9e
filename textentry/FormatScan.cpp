#include "textentry/FormatScan.hpp"

#include <algorithm>
#include <string_view>

namespace textentry {
namespace {

using namespace std::string_view_literals;

constexpr std::u16string_view kFlagsAndSizes = u"-+ #0'.hlqLjzt"sv;
constexpr std::u16string_view kIntegers = u"diuoxXcCpDUO"sv;

// A wider number than this is a mistake that would fill the memory with blanks.
constexpr std::uint16_t kWidest = 999;

bool isOneOf(std::u16string_view set, char16_t character) noexcept
{
    return set.find(character) != std::u16string_view::npos;
}

} // namespace

void FormatScan::take(char16_t character) noexcept
{
    length_ = std::min<std::uint8_t>(length_ + 1, 3);
    if (previousIsPercent_ && character == u'@')
        holdsObjectPlaceholder_ = true;
    previousIsPercent_ = character == u'%';

    if (inDirective_) {
        takeConversion(character);
    } else if (character == u'%') {
        inDirective_ = true;
        positional_ = false;
        number_ = 0;
    }
}

void FormatScan::takeConversion(char16_t character) noexcept
{
    const bool isLeadingZero = character == u'0' && number_ == 0;
    if (character >= u'0' && character <= u'9' && !isLeadingZero) {
        number_ = static_cast<std::uint16_t>(number_ * 10 + (character - u'0'));
        if (number_ > kWidest) {
            isHarmful_ = true;
            number_ = kWidest;
        }
        return;
    }
    if (isOneOf(kFlagsAndSizes, character)) {
        number_ = 0;
        return;
    }
    if (character == u'$') {
        positional_ = true;
        isHarmful_ |= number_ != 1;
        number_ = 0;
        return;
    }
    // Everything else ends the directive.
    inDirective_ = false;
    if (character == u'%')
        return;
    if (character == u'@')
        wantsObject_ = true;
    else if (!isOneOf(kIntegers, character))
        isHarmful_ = true;
    takeArgument();
}

void FormatScan::takeArgument() noexcept
{
    if (positional_)
        anyPositional_ = true;
    else
        inOrder_ = std::min<std::uint8_t>(inOrder_ + 1, 2);
}

bool FormatScan::takesOne(FormatValue value) const noexcept
{
    if (isHarmful_ || inDirective_ || inOrder_ > 1 || (anyPositional_ && inOrder_ > 0))
        return false;
    return value == FormatValue::Object || !wantsObject_;
}

} // namespace textentry
