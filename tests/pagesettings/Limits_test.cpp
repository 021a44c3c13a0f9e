#include "pagesettings/Limits.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace pagesettings {
namespace {

constexpr Unit kMillimetres = Unit::Millimetres;
constexpr Unit kInches = Unit::Inches;

TEST(UnitFromNumber, IsMillimetresForZeroAndInchesForAnythingElse)
{
    EXPECT_EQ(unitFromNumber(0), kMillimetres);
    EXPECT_EQ(unitFromNumber(1), kInches);
    EXPECT_EQ(unitFromNumber(2), kInches);
    EXPECT_EQ(unitFromNumber(-1), kInches);
}

TEST(UnitFromAttribute, IsInchesForTheExactWordOnly)
{
    EXPECT_EQ(unitFromAttribute("inch"), kInches);
    EXPECT_EQ(unitFromAttribute("Inch"), kMillimetres);
    EXPECT_EQ(unitFromAttribute("inches"), kMillimetres);
    EXPECT_EQ(unitFromAttribute(" inch"), kMillimetres);
    EXPECT_EQ(unitFromAttribute("mm"), kMillimetres);
    EXPECT_EQ(unitFromAttribute(""), kMillimetres);
}

TEST(IsTrue, AcceptsTheExactWordOnly)
{
    EXPECT_TRUE(isTrue("True"));
    EXPECT_FALSE(isTrue("true"));
    EXPECT_FALSE(isTrue("TRUE"));
    EXPECT_FALSE(isTrue("True "));
    EXPECT_FALSE(isTrue("False"));
    EXPECT_FALSE(isTrue(""));
}

TEST(Clamped, KeepsValuesInsideAndOnTheLimits)
{
    EXPECT_EQ(clamped(50.0f, 20.0f, 1000.0f), 50.0f);
    EXPECT_EQ(clamped(20.0f, 20.0f, 1000.0f), 20.0f);
    EXPECT_EQ(clamped(1000.0f, 20.0f, 1000.0f), 1000.0f);
    EXPECT_EQ(clamped(50.5, 20.0f, 1000.0f), 50.5);
}

TEST(Clamped, TakesTheNearestLimitOutside)
{
    EXPECT_EQ(clamped(19.9f, 20.0f, 1000.0f), 20.0f);
    EXPECT_EQ(clamped(1000.1f, 20.0f, 1000.0f), 1000.0f);
    EXPECT_EQ(clamped(19.9, 20.0f, 1000.0f), 20.0);
    EXPECT_EQ(clamped(1000.1, 20.0f, 1000.0f), 1000.0);
}

TEST(Clamped, TriesTheMinimumFirstWhereLimitsAreCrossed)
{
    EXPECT_EQ(clamped(50.0f, 100.0f, 10.0f), 100.0f);
    EXPECT_EQ(clamped(200.0f, 100.0f, 10.0f), 10.0f);
}

TEST(Clamped, CutsEveryLengthToZeroWithoutLimits)
{
    EXPECT_EQ(clamped(50.0f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(clamped(-50.0f, 0.0f, 0.0f), 0.0f);
}

TEST(LimitInUnit, IsTheLimitItselfInMillimetres)
{
    EXPECT_EQ(limitInUnit(25.4f, kMillimetres), 25.4f);
    EXPECT_EQ(limitInUnit(12.345f, kMillimetres), 12.345f);
}

TEST(LimitInUnit, CountsALimitOf25Point4MillimetresAsOneInch)
{
    EXPECT_EQ(limitInUnit(25.4f, kInches), 1.0f);
}

TEST(LimitInUnit, IsRoundedToHundredthsInInches)
{
    EXPECT_EQ(limitInUnit(4.0f, kInches), 0.16f);     // 0.1574804
    EXPECT_EQ(limitInUnit(1000.0f, kInches), 39.37f); // 39.3701
    EXPECT_EQ(limitInUnit(0.0f, kInches), 0.0f);
}

TEST(SliderRange, ShowsDecimalMillimetresRoundedUpButKeepsTheRangeExact)
{
    const SliderRange range = sliderRange(4.01f, 1000.55f, kMillimetres, false);
    EXPECT_EQ(range.minText.view(), "4.1");
    EXPECT_EQ(range.maxText.view(), "1000.6");
    EXPECT_EQ(range.minimum, static_cast<double>(4.01f));
    EXPECT_EQ(range.maximum, static_cast<double>(1000.55f));
    EXPECT_EQ(range.altIncrement, 1.0);
}

TEST(SliderRange, ShowsWholeMillimetresRoundedUpButKeepsTheRangeExact)
{
    const SliderRange range = sliderRange(4.2f, 99.5f, kMillimetres, true);
    EXPECT_EQ(range.minText.view(), "5");
    EXPECT_EQ(range.maxText.view(), "100");
    EXPECT_EQ(range.minimum, static_cast<double>(4.2f));
    EXPECT_EQ(range.maximum, 99.5);
    EXPECT_EQ(range.altIncrement, 1.0);
}

TEST(SliderRange, ShowsHundredthsInInchesAndMovesByAboutAMillimetre)
{
    const SliderRange range = sliderRange(4, 1000, kInches, false);
    EXPECT_EQ(range.minText.view(), "0.16");
    EXPECT_EQ(range.maxText.view(), "39.37");
    EXPECT_DOUBLE_EQ(range.minimum, 0.1574804);
    EXPECT_DOUBLE_EQ(range.maximum, 39.3701);
    EXPECT_NEAR(range.altIncrement, (39.37 - 0.16) / 996, 1e-7);
    EXPECT_NEAR(sliderRange(10, 10.5f, kInches, false).altIncrement, (0.41 - 0.39) / 0.5, 1e-7);
}

TEST(SliderRange, IgnoresWholeNumbersInInches)
{
    const SliderRange range = sliderRange(4, 1000, kInches, true);
    EXPECT_EQ(range.minText.view(), "0.16");
    EXPECT_EQ(range.maxText.view(), "39.37");
}

TEST(SliderRange, MovesByTheFactorWhereMinimumAndMaximumAreEqualInInches)
{
    EXPECT_EQ(sliderRange(50, 50, kInches, false).altIncrement, 0.0393701);
    EXPECT_EQ(sliderRange(50, 40, kInches, false).altIncrement, 0.0393701);
}

} // namespace
} // namespace pagesettings
