// The keystroke rules without a toolkit: style tables, order of refusals, the range step.

#include "textentry/KeystrokeRules.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

using namespace textentry;

namespace {

constexpr auto kNone = Refusal::None;
constexpr auto kInvalid = Refusal::InvalidCharacter;
constexpr auto kFormat = Refusal::FormatError;

Verdict check(const FieldRules& rules, const TextFacts& facts, std::u16string_view inserted)
{
    KeystrokeCheck result(rules, facts);
    for (const char16_t character : inserted)
        result.take(character);
    return result.verdict();
}

Refusal typed(std::int32_t style, char16_t character)
{
    TextFacts facts;
    facts.fitsASCII = character < 128;
    return check({.style = style}, facts, {&character, 1}).refusal;
}

// The accepted ASCII characters in their order.
std::string accepted(std::int32_t style)
{
    std::string result;
    for (char16_t character = 0; character < 128; ++character) {
        if (typed(style, character) == kNone)
            result.push_back(static_cast<char>(character));
    }
    return result;
}

std::string allASCII()
{
    std::string result;
    for (int character = 0; character < 128; ++character)
        result.push_back(static_cast<char>(character));
    return result;
}

const std::string kDigits = "0123456789";
const std::string kCapitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
const std::string kSmall = "abcdefghijklmnopqrstuvwxyz";

std::int32_t valueOf(std::u16string_view text)
{
    WholeNumberReader reader;
    for (const char16_t character : text) {
        if (!reader.take(character))
            break;
    }
    return reader.value();
}

} // namespace

TEST(TextStyle, ZeroTakesEveryCharacter)
{
    EXPECT_EQ(accepted(0), allASCII());
    EXPECT_EQ(typed(0, u'\u00e9'), kNone);
    EXPECT_EQ(typed(0, char16_t{0xd800}), kNone);
}

TEST(TextStyle, OneThreeAndFiveTakeEveryASCIICharacter)
{
    for (const std::int32_t style : {1, 3, 5}) {
        EXPECT_EQ(accepted(style), allASCII()) << style;
        EXPECT_EQ(typed(style, u'\u0080'), kInvalid) << style;
    }
}

TEST(TextStyle, AboveElevenAndBelowZeroTakeEveryASCIICharacter)
{
    for (const std::int32_t style : {12, 13, 1000, std::numeric_limits<std::int32_t>::max(), -1,
                                     std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_EQ(accepted(style), allASCII()) << style;
        EXPECT_EQ(typed(style, u'\u00e9'), kInvalid) << style;
        EXPECT_FALSE(isInStyle(style, u'\u00e9')) << style;
    }
}

TEST(TextStyle, TwoTakesDigitsAlone)
{
    EXPECT_EQ(accepted(2), kDigits);
}

TEST(TextStyle, FourTakesDigitsAndAPoint)
{
    EXPECT_EQ(accepted(4), "." + kDigits);
}

TEST(TextStyle, SixTakesLettersDigitsAndSpace)
{
    EXPECT_EQ(accepted(6), " " + kDigits + kCapitals + kSmall);
}

TEST(TextStyle, SevenTakesLettersDigitsAndEightSigns)
{
    EXPECT_EQ(accepted(7), " $%+-./" + kDigits + kCapitals + kSmall);
}

TEST(TextStyle, EightTakesDigitsAndSixSigns)
{
    EXPECT_EQ(accepted(8), "$+-./" + kDigits + ":");
}

TEST(TextStyle, NineTakesDigitsAToDAndSixSigns)
{
    EXPECT_EQ(accepted(9), "$+-./" + kDigits + ":ABCDabcd");
}

TEST(TextStyle, TenTakesSpaceToTilde)
{
    EXPECT_EQ(accepted(10), allASCII().substr(32, 95));
}

TEST(TextStyle, ElevenTakesLettersDigitsAndItsSigns)
{
    EXPECT_EQ(accepted(11), " !\"%'()*+,-./" + kDigits + ":;<=>?" + kCapitals + "_" + kSmall);
}

TEST(TextStyle, DigitsAndLettersOfOtherScriptsAreRefused)
{
    for (const std::int32_t style : {2, 4, 6, 9}) {
        EXPECT_EQ(typed(style, u'\u0664'), kInvalid) << style; // Arabic-Indic four
        EXPECT_EQ(typed(style, u'\uff15'), kInvalid) << style; // full-width five
        EXPECT_FALSE(isInStyle(style, u'\uff15')) << style;
    }
}

TEST(InsertedRange, IsWhatLiesBetweenTheTwoCarets)
{
    const auto range = insertedRange(5, 4, 1);
    ASSERT_TRUE(range.has_value());
    EXPECT_EQ(range->start, 1u);
    EXPECT_EQ(range->length, 3u);
}

TEST(InsertedRange, IsThereForACaretAtTheVeryEnd)
{
    ASSERT_TRUE(insertedRange(1, 1, 0).has_value());
}

TEST(InsertedRange, IsNotThereForACaretThatStaysOrGoesBack)
{
    EXPECT_FALSE(insertedRange(5, 3, 3).has_value());
    EXPECT_FALSE(insertedRange(5, 2, 3).has_value());
}

TEST(InsertedRange, IsNotThereForACaretOutsideTheText)
{
    EXPECT_FALSE(insertedRange(5, 6, 3).has_value());
    EXPECT_FALSE(insertedRange(0, 1, 0).has_value());
    EXPECT_FALSE(insertedRange(5, std::numeric_limits<std::size_t>::max(), 0).has_value());
}

TEST(KeystrokeCheck, AcceptsNothingInserted)
{
    EXPECT_EQ(check({.style = 2}, {}, u"").refusal, kNone);
}

TEST(KeystrokeCheck, TextOutsideMacRomanNamesItsLastCharacter)
{
    const Verdict verdict =
        check({.style = 1}, {.fitsMacRoman = false, .fitsASCII = false}, u"a\u3042b");
    EXPECT_EQ(verdict.refusal, kInvalid);
    EXPECT_EQ(verdict.offender, u'b');
}

TEST(KeystrokeCheck, TextOutsideASCIIAloneNamesNoCharacter)
{
    const Verdict verdict = check({.style = 1}, {.fitsASCII = false}, u"\u00e9");
    EXPECT_EQ(verdict.refusal, kInvalid);
    EXPECT_FALSE(verdict.offender.has_value());
}

TEST(KeystrokeCheck, AListedTextNamesItsCharacter)
{
    const Verdict verdict = check({.style = 1}, {.isListed = true}, u"x");
    EXPECT_EQ(verdict.refusal, kInvalid);
    EXPECT_EQ(verdict.offender, u'x');
}

TEST(KeystrokeCheck, StyleZeroAsksForNeitherEncodingNorList)
{
    const TextFacts facts{.fitsMacRoman = false, .fitsASCII = false, .isListed = true};
    EXPECT_EQ(check({.style = 0}, facts, u"x").refusal, kNone);
    EXPECT_FALSE(readsConvertibility({.style = 0}));
    EXPECT_TRUE(readsConvertibility({.style = 1}));
    EXPECT_TRUE(readsConvertibility({.style = -1}));
}

TEST(KeystrokeCheck, RefusesOneByteOverTheLimitInEveryStyle)
{
    for (const std::int32_t style : {0, 1, 2, 4}) {
        EXPECT_EQ(check({.style = style, .maxLength = 3}, {.proposedBytes = 4}, u"5").refusal,
                  kInvalid)
            << style;
        EXPECT_EQ(check({.style = style, .maxLength = 3}, {.proposedBytes = 3}, u"5").refusal,
                  kNone)
            << style;
    }
}

TEST(KeystrokeCheck, ALengthLimitOfZeroIsNone)
{
    EXPECT_EQ(check({.style = 1}, {.proposedBytes = 1000000}, u"5").refusal, kNone);
    EXPECT_FALSE(readsByteCount({.style = 1}));
    EXPECT_TRUE(readsByteCount({.style = 1, .maxLength = 1}));
}

TEST(KeystrokeCheck, ANegativeLengthLimitRefusesEverything)
{
    EXPECT_EQ(check({.style = 0, .maxLength = -1}, {.proposedBytes = 1}, u"5").refusal, kInvalid);
}

TEST(KeystrokeCheck, GoesOnAfterARefusalAndKeepsIt)
{
    EXPECT_EQ(check({.style = 2}, {}, u"x5").refusal, kInvalid);
    EXPECT_EQ(check({.style = 2}, {}, u"5x").refusal, kInvalid);
}

TEST(KeystrokeCheck, TheLastRefusalGivesTheName)
{
    const FieldRules rules{.style = 2, .hasMaxValue = true, .maxValue = 3};
    const TextFacts facts{.proposedValue = 5};
    EXPECT_EQ(check(rules, facts, u"x5").refusal, kFormat);
    EXPECT_EQ(check(rules, facts, u"5x").refusal, kInvalid);
}

TEST(DecimalPoint, IsRefusedWhereTheTextHasOne)
{
    EXPECT_EQ(check({.style = 4}, {.originalHasPoint = true}, u".").refusal, kInvalid);
    EXPECT_EQ(check({.style = 4}, {.originalHasPoint = true}, u"5").refusal, kNone);
}

TEST(DecimalPoint, MayBePastedTwiceIntoATextWithoutOne)
{
    EXPECT_EQ(check({.style = 4}, {}, u"1..2").refusal, kNone);
}

TEST(DecimalPoint, IsNoWholeNumber)
{
    EXPECT_EQ(check({.style = 2}, {}, u".").refusal, kInvalid);
    EXPECT_FALSE(isInStyle(4, u'.'));
}

TEST(DecimalPoint, TakesTheRangeStepWhenItIsAccepted)
{
    const FieldRules rules{.style = 4, .hasMinValue = true, .minValue = 1};
    EXPECT_EQ(check(rules, {.proposedValue = 0}, u".").refusal, kFormat);
    EXPECT_EQ(check(rules, {.originalHasPoint = true, .proposedValue = 0}, u".").refusal, kInvalid);
}

TEST(DecimalPoint, IsLookedForOnlyInDecimalNumbers)
{
    EXPECT_TRUE(readsOriginalPoint({.style = 4}));
    EXPECT_FALSE(readsOriginalPoint({.style = 2}));
    EXPECT_EQ(check({.style = 10}, {.originalHasPoint = true}, u".").refusal, kNone);
}

TEST(RangeStep, KeepsValuesExactlyOnTheLimits)
{
    const FieldRules rules{
        .style = 2, .hasMaxValue = true, .hasMinValue = true, .maxValue = 100, .minValue = 4};
    EXPECT_EQ(check(rules, {.proposedValue = 100}, u"0").refusal, kNone);
    EXPECT_EQ(check(rules, {.proposedValue = 101}, u"1").refusal, kFormat);
    EXPECT_EQ(check(rules, {.proposedValue = 4}, u"4").refusal, kNone);
    EXPECT_EQ(check(rules, {.proposedValue = 3}, u"3").refusal, kFormat);
}

TEST(RangeStep, IgnoresLimitsThatAreNotInForce)
{
    const FieldRules rules{.style = 2, .maxValue = 10, .minValue = 5};
    EXPECT_EQ(check(rules, {.proposedValue = 99}, u"9").refusal, kNone);
    EXPECT_EQ(check(rules, {.proposedValue = 1}, u"1").refusal, kNone);
    EXPECT_FALSE(readsValue(rules));
}

TEST(RangeStep, IsReadForNumbersWithALimitAlone)
{
    EXPECT_TRUE(readsValue({.style = 2, .hasMaxValue = true}));
    EXPECT_TRUE(readsValue({.style = 4, .hasMinValue = true}));
    EXPECT_FALSE(readsValue({.style = 10, .hasMaxValue = true, .hasMinValue = true}));
}

TEST(RangeStep, WaitsUntilTheTextHasItsFullLength)
{
    const FieldRules rules{.style = 2, .maxLength = 3, .hasMinValue = true, .minValue = 200};
    EXPECT_EQ(check(rules, {.proposedBytes = 2, .proposedValue = 12}, u"2").refusal, kNone);
    EXPECT_EQ(check(rules, {.proposedBytes = 3, .proposedValue = 125}, u"5").refusal, kFormat);
}

TEST(RangeStep, LeavesOtherStylesAlone)
{
    const FieldRules rules{.style = 10, .hasMaxValue = true, .maxValue = 1};
    EXPECT_EQ(check(rules, {.proposedValue = 9}, u"9").refusal, kNone);
}

TEST(PostedObject, IsTheOffenderThenTheObjectSetThenTheFormatter)
{
    const Verdict named{kInvalid, u'x'};
    const Verdict unnamed{kFormat, std::nullopt};
    EXPECT_EQ(postedObject(named, true), PostedObject::Offender);
    EXPECT_EQ(postedObject(named, false), PostedObject::Offender);
    EXPECT_EQ(postedObject(unnamed, true), PostedObject::NotificationObject);
    EXPECT_EQ(postedObject(unnamed, false), PostedObject::Formatter);
}

TEST(WholeNumberReader, StopsAtTheFirstCharacterThatIsNoDigit)
{
    EXPECT_EQ(valueOf(u"12.7"), 12);
    EXPECT_EQ(valueOf(u"12 7"), 12);
    EXPECT_EQ(valueOf(u"x12"), 0);
    EXPECT_EQ(valueOf(u"0x10"), 0);
    EXPECT_EQ(valueOf(u""), 0);
    EXPECT_EQ(valueOf(u"007"), 7);
}

TEST(WholeNumberReader, TakesNothingMoreOnceTheNumberHasEnded)
{
    WholeNumberReader reader;
    EXPECT_TRUE(reader.take(u'1'));
    EXPECT_FALSE(reader.take(u'.'));
    EXPECT_FALSE(reader.take(u'2'));
    EXPECT_EQ(reader.value(), 1);
}

TEST(WholeNumberReader, SkipsLeadingSpaceAndReadsASign)
{
    EXPECT_EQ(valueOf(u" \t\n\r12"), 12);
    EXPECT_EQ(valueOf(u"\b12"), 0);
    EXPECT_EQ(valueOf(u"\u000e12"), 0);
    EXPECT_EQ(valueOf(u"-12"), -12);
    EXPECT_EQ(valueOf(u"+12"), 12);
    EXPECT_EQ(valueOf(u"- 12"), 0);
    EXPECT_EQ(valueOf(u"--12"), 0);
    EXPECT_EQ(valueOf(u"-"), 0);
}

TEST(WholeNumberReader, KeepsANumberBeyond32BitsAtTheLimit)
{
    EXPECT_EQ(valueOf(u"2147483647"), 2147483647);
    EXPECT_EQ(valueOf(u"2147483648"), 2147483647);
    EXPECT_EQ(valueOf(u"4294967297"), 2147483647);
    EXPECT_EQ(valueOf(u"99999999999999999999999999999999"), 2147483647);
    EXPECT_EQ(valueOf(u"-2147483648"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(valueOf(u"-2147483649"), std::numeric_limits<std::int32_t>::min());
}
