#include "pagesettings/DisplayText.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace pagesettings {
namespace {

constexpr Unit kMillimetres = Unit::Millimetres;
constexpr Unit kInches = Unit::Inches;

TEST(InchText, HasTwoDecimals)
{
    EXPECT_EQ(inchText(100).view(), "3.94"); // 3.93701
    EXPECT_EQ(inchText(25.39998628).view(), "1.00");
    EXPECT_EQ(inchText(0).view(), "0.00");
    EXPECT_EQ(inchText(1e60).view(), "inf"); // no single-precision number
}

TEST(LengthText, CutsWholeMillimetresTowardZero)
{
    EXPECT_EQ(lengthText(30.9, kMillimetres, true).view(), "30");
    EXPECT_EQ(lengthText(29.7, kMillimetres, true).view(), "29");
    EXPECT_EQ(lengthText(-0.9, kMillimetres, true).view(), "0");
}

TEST(LengthText, PrintsDecimalMillimetresAsTheyAre)
{
    EXPECT_EQ(lengthText(30.94, kMillimetres, false).view(), "30.9");
    EXPECT_EQ(lengthText(30.96, kMillimetres, false).view(), "31.0");
    EXPECT_EQ(lengthText(100, kMillimetres, false).view(), "100.0");
}

TEST(LengthText, ShowsInchesWhateverTheWholeNumberRuleSays)
{
    EXPECT_EQ(lengthText(100, kInches, true).view(), "3.94");
    EXPECT_EQ(lengthText(100, kInches, false).view(), "3.94");
}

TEST(LengthText, SaturatesWholeNumbers)
{
    EXPECT_EQ(lengthText(1e30, kMillimetres, true).view(), "2147483647");
    EXPECT_EQ(lengthText(std::numeric_limits<double>::infinity(), kMillimetres, true).view(),
              "2147483647");
}

TEST(MarginText, RoundsUpUnlikeTheLength)
{
    EXPECT_EQ(marginText(2.01f, kMillimetres, false).view(), "2.1");
    EXPECT_EQ(marginText(2.2f, kMillimetres, false).view(), "2.2");
    EXPECT_EQ(marginText(2.01f, kMillimetres, true).view(), "3");
    EXPECT_EQ(marginText(3.0f, kMillimetres, true).view(), "3");
}

TEST(MarginText, ShowsInchesRoundedToTheNearest)
{
    EXPECT_EQ(marginText(3.0f, kInches, false).view(), "0.12"); // 0.1181
    EXPECT_EQ(marginText(3.0f, kInches, true).view(), "0.12");
}

TEST(RoundedUpText, TakesTheNextTenthOrWholeNumber)
{
    EXPECT_EQ(roundedUpText(30.91f, false).view(), "31.0");
    EXPECT_EQ(roundedUpText(30.1f, true).view(), "31");
    EXPECT_EQ(roundedUpText(30.0f, true).view(), "30");
}

TEST(CutTextInUnit, IsWhatAMovedLengthSliderShows)
{
    EXPECT_EQ(cutTextInUnit(30.97f, kMillimetres, true).view(), "30");
    EXPECT_EQ(cutTextInUnit(30.97f, kMillimetres, false).view(), "31.0");
    EXPECT_EQ(cutTextInUnit(30.92f, kMillimetres, false).view(), "30.9");
    EXPECT_EQ(cutTextInUnit(1.234f, kInches, true).view(), "1.23");
    EXPECT_EQ(cutTextInUnit(1.236f, kInches, false).view(), "1.24");
}

TEST(RoundedUpTextInUnit, IsWhatAMovedMarginSliderShows)
{
    EXPECT_EQ(roundedUpTextInUnit(3.01f, kMillimetres, true).view(), "4");
    EXPECT_EQ(roundedUpTextInUnit(3.01f, kMillimetres, false).view(), "3.1");
    EXPECT_EQ(roundedUpTextInUnit(0.123f, kInches, true).view(), "0.12");
    EXPECT_EQ(roundedUpTextInUnit(0.127f, kInches, false).view(), "0.13");
}

TEST(MillimetresShown, ConvertsInchesWithTheRoundedFactor)
{
    EXPECT_EQ(millimetresShown(12.5, kMillimetres), 12.5);
    EXPECT_DOUBLE_EQ(millimetresShown(1.5, kInches), 1.5 / 0.0393701);
    EXPECT_NEAR(millimetresShown(1.0, kInches), 25.39998628, 1e-8);
}

} // namespace
} // namespace pagesettings
