#include "textentry/KeystrokeRules.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

namespace textentry {
namespace {

// A set of ASCII characters, one bit each.
class CharacterSet
{
  public:
    constexpr CharacterSet() = default;
    constexpr CharacterSet(std::string_view members)
    {
        for (const char member : members)
            add(static_cast<unsigned char>(member));
    }

    constexpr CharacterSet with(char first, char last) const
    {
        CharacterSet result = *this;
        for (int member = first; member <= last; ++member)
            result.add(static_cast<unsigned>(member));
        return result;
    }

    constexpr bool holds(char16_t character) const
    {
        return character < 128 && ((bits_[character / 64] >> (character % 64)) & 1) != 0;
    }

  private:
    constexpr void add(unsigned member) { bits_[member / 64] |= std::uint64_t{1} << (member % 64); }

    std::array<std::uint64_t, 2> bits_{};
};

constexpr CharacterSet digitsAnd(std::string_view others)
{
    return CharacterSet(others).with('0', '9');
}

constexpr CharacterSet lettersDigitsAnd(std::string_view others)
{
    return digitsAnd(others).with('A', 'Z').with('a', 'z');
}

constexpr CharacterSet kASCII = CharacterSet().with(0, 127);

constexpr std::array<CharacterSet, 12> kStyles = {
    kASCII,                                            // 0: not asked for
    kASCII,                                            // 1
    digitsAnd(""),                                     // 2: whole numbers
    kASCII,                                            // 3
    digitsAnd(""),                                     // 4: decimal numbers
    kASCII,                                            // 5: calendar dates
    lettersDigitsAnd(" "),                             // 6
    lettersDigitsAnd(" $%+-./"),                       // 7
    digitsAnd("$+-./:"),                               // 8
    digitsAnd("$+-./:").with('A', 'D').with('a', 'd'), // 9
    CharacterSet().with(' ', '~'),                     // 10
    lettersDigitsAnd(" !\"%'()*+,-./:;<=>?_"),         // 11
};

bool isNumber(std::int32_t style) noexcept
{
    return style == kWholeNumber || style == kDecimalNumber;
}

bool isSpace(char16_t character) noexcept
{
    return character == u' ' || (character >= u'\t' && character <= u'\r');
}

} // namespace

std::optional<TextRange> insertedRange(std::size_t proposedLength, std::size_t proposedCaret,
                                       std::size_t originalCaret) noexcept
{
    if (proposedCaret <= originalCaret || proposedCaret > proposedLength)
        return std::nullopt;
    return TextRange{originalCaret, proposedCaret - originalCaret};
}

bool readsConvertibility(const FieldRules& rules) noexcept
{
    return rules.style != kAnyText;
}

bool readsByteCount(const FieldRules& rules) noexcept
{
    return rules.maxLength != 0;
}

bool readsValue(const FieldRules& rules) noexcept
{
    return isNumber(rules.style) && (rules.hasMaxValue || rules.hasMinValue);
}

bool readsOriginalPoint(const FieldRules& rules) noexcept
{
    return rules.style == kDecimalNumber;
}

bool isInStyle(std::int32_t style, char16_t character) noexcept
{
    if (style < 0 || style >= static_cast<std::int32_t>(kStyles.size()))
        return kASCII.holds(character);
    return kStyles[static_cast<std::size_t>(style)].holds(character);
}

void KeystrokeCheck::take(char16_t character) noexcept
{
    if (rules_.style != kAnyText && (!facts_.fitsMacRoman || facts_.isListed)) {
        verdict_.refusal = Refusal::InvalidCharacter;
        verdict_.offender = character;
        return;
    }
    const Refusal refusal = judge(character);
    if (refusal != Refusal::None)
        verdict_.refusal = refusal;
}

Refusal KeystrokeCheck::judge(char16_t character) const noexcept
{
    if (rules_.maxLength != 0 && facts_.proposedBytes > rules_.maxLength)
        return Refusal::InvalidCharacter;
    if (rules_.style == kAnyText)
        return Refusal::None;
    if (!facts_.fitsASCII)
        return Refusal::InvalidCharacter;
    // Only the text before the keystroke is searched for a point, so two points pasted in one go
    // into a text without one may stand.
    const bool isPoint = rules_.style == kDecimalNumber && character == u'.';
    if (isPoint ? facts_.originalHasPoint : !isInStyle(rules_.style, character))
        return Refusal::InvalidCharacter;
    return isNumber(rules_.style) ? judgeValue() : Refusal::None;
}

Refusal KeystrokeCheck::judgeValue() const noexcept
{
    // With a length limit the value counts once the text is complete.
    if (rules_.maxLength != 0 && facts_.proposedBytes != rules_.maxLength)
        return Refusal::None;
    const bool above = rules_.hasMaxValue && facts_.proposedValue > rules_.maxValue;
    const bool below = rules_.hasMinValue && facts_.proposedValue < rules_.minValue;
    return above || below ? Refusal::FormatError : Refusal::None;
}

PostedObject postedObject(const Verdict& verdict, bool hasNotificationObject) noexcept
{
    if (verdict.offender)
        return PostedObject::Offender;
    return hasNotificationObject ? PostedObject::NotificationObject : PostedObject::Formatter;
}

bool WholeNumberReader::take(char16_t character) noexcept
{
    if (state_ == State::Done)
        return false;
    if (state_ == State::Space) {
        if (isSpace(character))
            return true;
        state_ = State::Digits;
        if (character == u'-' || character == u'+') {
            negative_ = character == u'-';
            return true;
        }
    }
    if (character < u'0' || character > u'9') {
        state_ = State::Done;
        return false;
    }
    constexpr std::int64_t kBeyond = std::int64_t{1} << 31; // enough to tell either limit
    magnitude_ = std::min(magnitude_ * 10 + (character - u'0'), kBeyond);
    return true;
}

std::int32_t WholeNumberReader::value() const noexcept
{
    if (negative_)
        return static_cast<std::int32_t>(-magnitude_);
    constexpr std::int64_t kGreatest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(magnitude_, kGreatest));
}

} // namespace textentry
