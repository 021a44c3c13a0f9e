#include "pagesettings/NumberText.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace pagesettings {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(FixedText, HasOneOrTwoDecimalsWithADot)
{
    EXPECT_EQ(oneDecimalText(100).view(), "100.0");
    EXPECT_EQ(oneDecimalText(30.94).view(), "30.9");
    EXPECT_EQ(twoDecimalText(1.5).view(), "1.50");
    EXPECT_EQ(twoDecimalText(3.93701).view(), "3.94");
    EXPECT_EQ(fixedText(12.7, 0).view(), "13");
}

TEST(FixedText, RoundsTheExactBinaryValueAndTiesToEven)
{
    EXPECT_EQ(oneDecimalText(0.25).view(), "0.2");
    EXPECT_EQ(oneDecimalText(0.75).view(), "0.8");
    EXPECT_EQ(oneDecimalText(0.15).view(), "0.1"); // 0.15 lies a little below 0.15
    EXPECT_EQ(twoDecimalText(1.005).view(), "1.00");
}

TEST(FixedText, KeepsTheSignOfNegativeNumbers)
{
    EXPECT_EQ(oneDecimalText(-2.26).view(), "-2.3");
    EXPECT_EQ(twoDecimalText(-0.001).view(), "-0.00");
}

TEST(FixedText, WritesInfinityAsInf)
{
    EXPECT_EQ(oneDecimalText(kInfinity).view(), "inf");
    EXPECT_EQ(oneDecimalText(-kInfinity).view(), "-inf");
    EXPECT_EQ(twoDecimalText(kNaN).view(), "nan");
}

TEST(FixedText, HoldsTheGreatestDoubleAndEndsWithATerminator)
{
    const NumberText text = twoDecimalText(-std::numeric_limits<double>::max());
    EXPECT_EQ(text.view().size(), 1 + 309 + 3u);
    EXPECT_TRUE(text.view().starts_with("-17976931348623157"));
    EXPECT_TRUE(text.view().ends_with(".00"));
    EXPECT_EQ(std::string(text.c_str()), text.view());
}

TEST(WholeText, WritesTheWholeRangeOfIntegers)
{
    EXPECT_EQ(wholeText(0).view(), "0");
    EXPECT_EQ(wholeText(-7).view(), "-7");
    EXPECT_EQ(wholeText(std::numeric_limits<std::int32_t>::max()).view(), "2147483647");
    EXPECT_EQ(wholeText(std::numeric_limits<std::int32_t>::min()).view(), "-2147483648");
    EXPECT_STREQ(wholeText(1000).c_str(), "1000");
}

TEST(LeadingDouble, TakesTheLongestNumberThatTheTextBeginsWith)
{
    EXPECT_EQ(leadingDouble("12.5abc"), 12.5);
    EXPECT_EQ(leadingDouble("12.5.6"), 12.5);
    EXPECT_EQ(leadingDouble("30 mm"), 30);
    EXPECT_EQ(leadingDouble("7,5"), 7);
    EXPECT_EQ(leadingDouble("5."), 5);
    EXPECT_EQ(leadingDouble(".5"), 0.5);
    EXPECT_EQ(leadingDouble("-.5x"), -0.5);
    EXPECT_EQ(leadingDouble("+3"), 3);
    EXPECT_EQ(leadingDouble("-3.25"), -3.25);
    EXPECT_EQ(leadingDouble(std::string_view("12.75").substr(0, 4)), 12.7);
}

TEST(LeadingDouble, SkipsWhiteSpaceBeforeTheNumber)
{
    EXPECT_EQ(leadingDouble(" \t\n\v\f\r12"), 12);
    EXPECT_EQ(leadingDouble(" -4"), -4);
    EXPECT_EQ(leadingDouble("   "), 0);
}

TEST(LeadingDouble, IsZeroWhereThereIsNoNumber)
{
    EXPECT_EQ(leadingDouble(""), 0);
    EXPECT_EQ(leadingDouble("abc"), 0);
    EXPECT_EQ(leadingDouble("."), 0);
    EXPECT_EQ(leadingDouble(".x"), 0);
    EXPECT_EQ(leadingDouble("-"), 0);
    EXPECT_EQ(leadingDouble("+-5"), 0);
    EXPECT_EQ(leadingDouble("- 5"), 0);
    EXPECT_EQ(leadingDouble("/5"), 0);
    EXPECT_EQ(leadingDouble(":5"), 0);
    EXPECT_EQ(leadingDouble("\b5"), 0);
    EXPECT_EQ(leadingDouble("\x1f"
                            "5"),
              0);
}

TEST(LeadingDouble, ReadsExponentsButNoOtherForms)
{
    EXPECT_EQ(leadingDouble("1e3"), 1000);
    EXPECT_EQ(leadingDouble("25E-1"), 2.5);
    EXPECT_EQ(leadingDouble("1e+2mm"), 100);
    EXPECT_EQ(leadingDouble("4em"), 4);
    EXPECT_EQ(leadingDouble("inf"), 0);
    EXPECT_EQ(leadingDouble("nan"), 0);
    EXPECT_EQ(leadingDouble("-infinity"), 0);
    EXPECT_EQ(leadingDouble("0x10"), 0);
}

TEST(LeadingDouble, IsInfiniteBeyondTheRangeAndZeroBelowIt)
{
    EXPECT_EQ(leadingDouble("1e400"), kInfinity);
    EXPECT_EQ(leadingDouble("1e+400"), kInfinity);
    EXPECT_EQ(leadingDouble("-1e400"), -kInfinity);
    EXPECT_EQ(leadingDouble("1e-400"), 0);
    EXPECT_EQ(leadingDouble("1e99999999999999999999999"), kInfinity);
    EXPECT_EQ(leadingDouble("1e-99999999999999999999999"), 0);
    EXPECT_EQ(leadingDouble("123e9223372036854775807"), kInfinity);
    EXPECT_EQ(leadingDouble("0.001e-9223372036854775807"), 0);
    EXPECT_EQ(leadingDouble("0e99999999999999999999999"), 0);
    EXPECT_EQ(leadingDouble("123456789e-350"), 0);
    EXPECT_EQ(leadingDouble("0.00001e400"), kInfinity);
    EXPECT_EQ(leadingDouble("0.00001e+400"), kInfinity);
    EXPECT_EQ(leadingDouble(std::string(400, '9')), kInfinity);
    EXPECT_EQ(leadingDouble("1" + std::string(309, '0')), kInfinity);
    EXPECT_EQ(leadingDouble("0." + std::string(400, '0') + "1"), 0);
    EXPECT_EQ(leadingDouble("0e999999"), 0);
}

TEST(LeadingFloat, NarrowsTheNumber)
{
    EXPECT_EQ(leadingFloat("0.1"), 0.1f);
    EXPECT_EQ(leadingFloat("1e39"), std::numeric_limits<float>::infinity());
    EXPECT_EQ(leadingFloat("-1e39"), -std::numeric_limits<float>::infinity());
    EXPECT_EQ(leadingFloat("letters"), 0.0f);
}

TEST(Narrowed, IsInfiniteBeyondSinglePrecisionAndKeepsTheGreatest)
{
    constexpr double greatest = std::numeric_limits<float>::max();
    EXPECT_EQ(narrowed(greatest), std::numeric_limits<float>::max());
    EXPECT_EQ(narrowed(-greatest), -std::numeric_limits<float>::max());
    EXPECT_EQ(narrowed(greatest * 2), std::numeric_limits<float>::infinity());
    EXPECT_EQ(narrowed(-greatest * 2), -std::numeric_limits<float>::infinity());
    EXPECT_TRUE(std::isnan(narrowed(kNaN)));
}

TEST(Truncated, CutsTowardZeroAndSaturates)
{
    EXPECT_EQ(truncated(30.9), 30);
    EXPECT_EQ(truncated(-30.9), -30);
    EXPECT_EQ(truncated(2147483646.9), 2147483646);
    EXPECT_EQ(truncated(2147483647.0), 2147483647);
    EXPECT_EQ(truncated(1e12), 2147483647);
    EXPECT_EQ(truncated(-2147483648.0), -2147483647 - 1);
    EXPECT_EQ(truncated(-1e12), -2147483647 - 1);
    EXPECT_EQ(truncated(kInfinity), 2147483647);
    EXPECT_EQ(truncated(-kInfinity), -2147483647 - 1);
    EXPECT_EQ(truncated(kNaN), 0);
}

TEST(RoundedUp, TakesTheNextWholeNumberAndSaturates)
{
    EXPECT_EQ(roundedUp(30.0), 30);
    EXPECT_EQ(roundedUp(30.001), 31);
    EXPECT_EQ(roundedUp(-30.9), -30);
    EXPECT_EQ(roundedUp(kInfinity), 2147483647);
    EXPECT_EQ(roundedUp(-kInfinity), -2147483647 - 1);
}

TEST(RoundedUpToTenths, LiftsAMarginOf2Point01To2Point1)
{
    EXPECT_EQ(roundedUpToTenths(2.01f), 2.1);
}

TEST(RoundedUpToTenths, LiftsALengthOf29Point74To29Point8)
{
    EXPECT_EQ(roundedUpToTenths(29.74f), 29.8);
}

TEST(RoundedUpToTenths, KeepsEveryValueThatHasOneDecimal)
{
    // In double precision 2.2 (a little above 2.2 once narrowed) would become 2.3.
    for (int tenths = -20'000; tenths <= 200'000; ++tenths)
        ASSERT_EQ(roundedUpToTenths(static_cast<float>(tenths / 10.0)), tenths / 10.0) << tenths;
}

TEST(RoundedUpToTenths, RoundsNegativeNumbersTowardZero)
{
    EXPECT_EQ(roundedUpToTenths(-2.07f), -2.0);
}

TEST(RoundedUpToTenths, LeavesInfinityInfinite)
{
    EXPECT_EQ(roundedUpToTenths(std::numeric_limits<float>::infinity()), kInfinity);
    EXPECT_EQ(roundedUpToTenths(std::numeric_limits<float>::max()), kInfinity);
}

} // namespace
} // namespace pagesettings
