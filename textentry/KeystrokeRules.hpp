// KeystrokeRules.hpp - whether typed or pasted text may stand in a field, by the field's text
// style.
//
// The caller says what the text is about to become and answers a few questions about it; the rule
// says whether the keystroke is refused, and why:
//
//     KeystrokeCheck check(rules, facts);
//     for (char16_t unit : insertedText)
//         check.take(unit);
//     if (check.verdict().refusal != Refusal::None) ...
//
// Characters are UTF-16 code units, lengths and positions count them.  Nothing here allocates,
// throws or asks the toolkit.  Not here: the beep and the notification (PDEFormatter.mm).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace textentry {

// What a field accepts.  Styles outside the named ones accept any ASCII character.
inline constexpr std::int32_t kAnyText = 0;
inline constexpr std::int32_t kWholeNumber = 2;
inline constexpr std::int32_t kDecimalNumber = 4;
inline constexpr std::int32_t kCalendarDate = 5;

struct FieldRules
{
    std::int32_t style = kAnyText;
    std::int32_t maxLength = 0; // bytes in the system encoding; 0 is no limit
    bool hasMaxValue = false;
    bool hasMinValue = false;
    std::int32_t maxValue = 0;
    std::int32_t minValue = 0;
};

// Where the inserted text lies in the proposed text.  None when the keystroke inserts nothing: the
// caret did not move forward (a deletion), or lies outside the text.
struct TextRange
{
    std::size_t start = 0;
    std::size_t length = 0;
};
std::optional<TextRange> insertedRange(std::size_t proposedLength, std::size_t proposedCaret,
                                       std::size_t originalCaret) noexcept;

// What the toolkit knows about one keystroke.  Only what reads...() asks for needs a true answer.
struct TextFacts
{
    bool fitsMacRoman = true; // the inserted text, as a whole
    bool fitsASCII = true;    // likewise
    bool isListed = false;    // the inserted text is in the list of invalid strings
    bool originalHasPoint = false;
    std::int64_t proposedBytes = 0; // the whole proposed text in the system encoding
    std::int32_t proposedValue = 0; // its leading whole number
};
bool readsConvertibility(const FieldRules& rules) noexcept; // fitsMacRoman, fitsASCII, isListed
bool readsByteCount(const FieldRules& rules) noexcept;
bool readsValue(const FieldRules& rules) noexcept;
bool readsOriginalPoint(const FieldRules& rules) noexcept; // when a point is inserted

enum class Refusal : std::uint8_t
{
    None,
    InvalidCharacter, // "InvalidCharacterNotification"
    FormatError,      // "FormatErrorNotification": the value is out of range
};

struct Verdict
{
    Refusal refusal = Refusal::None;
    std::optional<char16_t> offender; // set when the text cannot be converted or is listed
};

class KeystrokeCheck
{
  public:
    KeystrokeCheck(const FieldRules& rules, const TextFacts& facts) noexcept
        : rules_(rules), facts_(facts)
    {
    }

    // The inserted characters, in their order.  A refusal does not end the check: a later one
    // takes its place.
    void take(char16_t character) noexcept;
    const Verdict& verdict() const noexcept { return verdict_; }

  private:
    Refusal judge(char16_t character) const noexcept;
    Refusal judgeValue() const noexcept;

    FieldRules rules_;
    TextFacts facts_;
    Verdict verdict_;
};

// Whether the style's set holds the character.  For decimal numbers the set is the digits; the
// point has a rule of its own.
bool isInStyle(std::int32_t style, char16_t character) noexcept;

// Whom a refusal names: the character at fault, else the object set for that, else the formatter.
enum class PostedObject : std::uint8_t
{
    Offender,
    NotificationObject,
    Formatter
};
PostedObject postedObject(const Verdict& verdict, bool hasNotificationObject) noexcept;

// The whole number at the start of a text: white space, a sign, digits; the rest is not looked at.
// A number beyond 32 bits is the nearest one within, 0 stands for none.
class WholeNumberReader
{
  public:
    // False once the number has ended; what follows changes nothing.
    bool take(char16_t character) noexcept;
    std::int32_t value() const noexcept;

  private:
    enum class State : std::uint8_t
    {
        Space,
        Digits,
        Done
    };
    State state_ = State::Space;
    bool negative_ = false;
    std::int64_t magnitude_ = 0;
};

} // namespace textentry
