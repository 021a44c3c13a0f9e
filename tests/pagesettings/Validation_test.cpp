#include "pagesettings/Validation.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <string_view>

namespace pagesettings {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

PanelRules rulesFor(Unit unit, bool wholeLengths = false, bool wholeMargins = false)
{
    return {unit, wholeLengths, wholeMargins, {20, 1000, 3, 50}};
}

const PanelRules kDecimal = rulesFor(Unit::Millimetres);
const PanelRules kWhole = rulesFor(Unit::Millimetres, true, true);
const PanelRules kInch = rulesFor(Unit::Inches); // 0.79 to 39.37 and 0.12 to 1.97

FieldValue field(std::string_view text)
{
    return {leadingFloat(text), leadingDouble(text)};
}

TEST(TypingGate, LetsAValueBelowTheMinimumStand)
{
    EXPECT_TRUE(mayStandWhileTyping(1, 5, 0, kDecimal));
}

TEST(TypingGate, LetsAValueOnTheMaximumStand)
{
    EXPECT_TRUE(mayStandWhileTyping(1, 1000, 50, kDecimal));
}

TEST(TypingGate, CorrectsALengthAboveItsMaximum)
{
    EXPECT_FALSE(mayStandWhileTyping(1, 1000.1f, 3, kDecimal));
}

TEST(TypingGate, CorrectsAMarginAboveItsMaximum)
{
    EXPECT_FALSE(mayStandWhileTyping(1, 100, 50.1f, kDecimal));
}

TEST(TypingGate, ComparesWithTheRoundedMaximumInInches)
{
    // 1000 mm are 39.3701 inches: 39.37 is the maximum on screen, and in the comparison.
    EXPECT_TRUE(mayStandWhileTyping(1, 39.37f, 1.97f, kInch));
    EXPECT_FALSE(mayStandWhileTyping(1, 39.371f, 1.0f, kInch));
    EXPECT_FALSE(mayStandWhileTyping(1, 10.0f, 1.971f, kInch));
}

TEST(TypingGate, CorrectsEverythingOnceTypingIsOver)
{
    EXPECT_FALSE(mayStandWhileTyping(0, 100, 10, kDecimal));
}

TEST(TypingGate, LetsAnythingStandOnAnyOtherMark)
{
    EXPECT_TRUE(mayStandWhileTyping(2, 5000, 5000, kDecimal));
    EXPECT_TRUE(mayStandWhileTyping(255, 5000, 5000, kDecimal));
}

TEST(LengthCorrection, LiftsAShortLengthToTheMinimum)
{
    const Correction length = correctedLength(field("5"), kDecimal);
    EXPECT_EQ(length.text.view(), "20.0");
    EXPECT_EQ(length.value, 20.0);
}

TEST(LengthCorrection, ShortensALongLengthToTheMaximum)
{
    EXPECT_EQ(correctedLength(field("1000.1"), kDecimal).text.view(), "1000.0");
    EXPECT_EQ(correctedLength(field("1e400"), kDecimal).text.view(), "1000.0");
}

TEST(LengthCorrection, RoundsUpToTenths)
{
    EXPECT_EQ(correctedLength(field("30.91"), kDecimal).text.view(), "31.0");
    EXPECT_EQ(correctedLength(field("30.9"), kDecimal).text.view(), "30.9");
    EXPECT_EQ(correctedLength(field("22.2"), kDecimal).text.view(), "22.2");
    EXPECT_EQ(correctedLength(field("22.2"), kDecimal).value, static_cast<double>(22.2f));
}

TEST(LengthCorrection, RoundsUpToWholeMillimetres)
{
    EXPECT_EQ(correctedLength(field("30.1"), kWhole).text.view(), "31");
    EXPECT_EQ(correctedLength(field("30.1"), kWhole).value, 31.0);
    EXPECT_EQ(correctedLength(field("30"), kWhole).text.view(), "30");
    EXPECT_EQ(correctedLength(field("5"), kWhole).text.view(), "20");
    EXPECT_EQ(correctedLength(field("2000"), kWhole).text.view(), "1000");
    // Only the double shows that this is more than thirty.
    EXPECT_EQ(correctedLength(field("30.00000001"), kWhole).text.view(), "31");
}

TEST(LengthCorrection, SaturatesWholeNumbers)
{
    PanelRules rules = kWhole;
    rules.limits.maxLength = std::numeric_limits<float>::infinity();
    EXPECT_EQ(correctedLength(field("1e12"), rules).text.view(), "2147483647");
}

TEST(LengthCorrection, RoundsInchesUpToHundredths)
{
    EXPECT_EQ(correctedLength(field("1.234"), kInch).text.view(), "1.24");
    EXPECT_EQ(correctedLength(field("1.234"), kInch).value, 1.24);
    EXPECT_EQ(correctedLength(field("1.23"), kInch).text.view(), "1.23");
}

TEST(LengthCorrection, KeepsEveryInchValueOfTwoDecimals)
{
    for (int hundredths = 79; hundredths <= 3937; ++hundredths) {
        const std::string text(twoDecimalText(hundredths / 100.0).view());
        ASSERT_EQ(correctedLength(field(text), kInch).text.view(), text);
    }
}

TEST(LengthCorrection, DropsNoiseBelowAMillionthOfAHundredth)
{
    EXPECT_EQ(correctedLength(field("1.230000001"), kInch).text.view(), "1.23");
    EXPECT_EQ(correctedLength(field("1.23000002"), kInch).text.view(), "1.24");
}

TEST(LengthCorrection, ClampsInchesToTheLimitsAsShown)
{
    EXPECT_EQ(correctedLength(field("0.1"), kInch).text.view(), "0.79");
    EXPECT_EQ(correctedLength(field("0.1"), kInch).value, 0.79);
    EXPECT_EQ(correctedLength(field("50"), kInch).text.view(), "39.37");
    PanelRules oneInch = kInch;
    oneInch.limits.maxLength = 25.4f;
    EXPECT_EQ(correctedLength(field("1.01"), oneInch).text.view(), "1.00");
}

TEST(MarginCorrection, ClampsIntoTheLimits)
{
    EXPECT_EQ(correctedMargin(field("0"), kDecimal).text.view(), "3.0");
    EXPECT_EQ(correctedMargin(field("60"), kDecimal).text.view(), "50.0");
    EXPECT_EQ(correctedMargin(field("0"), kWhole).text.view(), "3");
    EXPECT_EQ(correctedMargin(field("0"), kInch).text.view(), "0.12");
    EXPECT_EQ(correctedMargin(field("9"), kInch).text.view(), "1.97");
}

TEST(MarginCorrection, RoundsUp)
{
    EXPECT_EQ(correctedMargin(field("3.01"), kDecimal).text.view(), "3.1");
    EXPECT_EQ(correctedMargin(field("3.1"), kDecimal).text.view(), "3.1");
    EXPECT_EQ(correctedMargin(field("3.01"), kWhole).text.view(), "4");
    EXPECT_EQ(correctedMargin(field("3.01"), kWhole).value, 4.0);
    EXPECT_EQ(correctedMargin(field("0.123"), kInch).text.view(), "0.13");
}

TEST(MarginCorrection, DropsNoiseBelowABillionthOfAHundredthOnly)
{
    EXPECT_EQ(correctedMargin(field("1.230000001"), kInch).text.view(), "1.24");
    EXPECT_EQ(correctedMargin(field("1.230000000001"), kInch).text.view(), "1.23");
}

TEST(MarginCorrection, KeepsEveryInchValueOfTwoDecimals)
{
    for (int hundredths = 12; hundredths <= 197; ++hundredths) {
        const std::string text(twoDecimalText(hundredths / 100.0).view());
        ASSERT_EQ(correctedMargin(field(text), kInch).text.view(), text);
    }
}

TEST(MarginTooWide, AllowsExactlyHalfTheLength)
{
    EXPECT_FALSE(isMarginTooWide(15, 30));
    EXPECT_FALSE(
        isMarginTooWide(correctedMargin(field("3.7"), kDecimal).value, leadingFloat("7.4")));
    EXPECT_FALSE(isMarginTooWide(0.35, leadingFloat("0.70")));
    for (int tenths = 30; tenths <= 500; ++tenths) {
        const NumberText margin = oneDecimalText(tenths / 10.0);
        const NumberText length = oneDecimalText(tenths / 5.0);
        ASSERT_FALSE(isMarginTooWide(correctedMargin(field(margin.view()), kDecimal).value,
                                     leadingFloat(length.view())))
            << margin.view();
    }
}

TEST(MarginTooWide, SeesATenthMore)
{
    EXPECT_TRUE(isMarginTooWide(15.1, 30));
    EXPECT_FALSE(isMarginTooWide(14.9, 30));
    EXPECT_TRUE(isMarginTooWide(0.36, 0.70f));
}

TEST(LengthForMargin, IsTwoMarginsAndADotRoundedUpToTenths)
{
    EXPECT_EQ(lengthForMargin(20, 0.1, kDecimal).text.view(), "40.1");
    EXPECT_EQ(lengthForMargin(20, 25.4 / 180, kDecimal).text.view(), "40.2"); // 40.1411
    const double margin = correctedMargin(field("4.2"), kDecimal).value;
    EXPECT_EQ(lengthForMargin(margin, 0.1, kDecimal).text.view(), "8.5");
}

TEST(LengthForMargin, RoundsTheMarginUpFirst)
{
    EXPECT_EQ(lengthForMargin(20.01, 0.1, kDecimal).text.view(), "40.3");
}

TEST(LengthForMargin, FollowsTheMarginsWholeNumberRule)
{
    PanelRules rules = rulesFor(Unit::Millimetres, false, true);
    EXPECT_EQ(lengthForMargin(20, 1.0, rules).text.view(), "41");
    rules = rulesFor(Unit::Millimetres, true, false);
    EXPECT_EQ(lengthForMargin(20, 0.1, rules).text.view(), "40.1");
}

TEST(LengthForMargin, IsTwoMarginsAndADotInInches)
{
    EXPECT_EQ(lengthForMargin(1.5, 0.01 / 0.0393701, kInch).text.view(), "3.01");
    EXPECT_NEAR(lengthForMargin(1.5, 0.01 / 0.0393701, kInch).value, 3.01, 1e-12);
}

TEST(LengthForMargin, IsNotHeldToTheMaximum)
{
    PanelRules rules = kDecimal;
    rules.limits.maxLength = 30;
    EXPECT_EQ(lengthForMargin(20, 0.1, rules).text.view(), "40.1");
}

TEST(LengthForMargin, IsInfiniteForAnInfiniteDot)
{
    EXPECT_EQ(lengthForMargin(20, kInfinity, kDecimal).text.view(), "inf");
    EXPECT_EQ(lengthForMargin(20, kInfinity, kDecimal).value, kInfinity);
    EXPECT_EQ(lengthForMargin(1, kInfinity, kInch).text.view(), "inf");
    EXPECT_EQ(lengthForMargin(20, kInfinity, kWhole).text.view(), "2147483647");
}

} // namespace
} // namespace pagesettings
