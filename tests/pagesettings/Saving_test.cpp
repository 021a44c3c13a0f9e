#include "pagesettings/Saving.hpp"

#include "pagesettings/DisplayText.hpp"

#include <gtest/gtest.h>

#include <string_view>

namespace pagesettings {
namespace {

PanelRules rulesFor(Unit unit, bool wholeLengths = false, bool wholeMargins = false)
{
    return {unit, wholeLengths, wholeMargins, {20, 1000, 3, 50}};
}

const PanelRules kDecimal = rulesFor(Unit::Millimetres);
const PanelRules kWhole = rulesFor(Unit::Millimetres, true, true);
const PanelRules kInch = rulesFor(Unit::Inches);

FieldValue field(std::string_view text)
{
    return {leadingFloat(text), leadingDouble(text)};
}

TEST(ShownPaper, IsTheTextOfThePaperInThePanelsUnit)
{
    EXPECT_EQ(shownPaper(30.9, 0, 0, kDecimal).text.view(), "30.9");
    EXPECT_EQ(shownPaper(30.9, 0, 0, kDecimal).value, 30.9f);
    EXPECT_EQ(shownPaper(30.9, 0, 0, kWhole).text.view(), "30");
    EXPECT_EQ(shownPaper(30.9, 0, 0, kWhole).value, 30.0f);
    EXPECT_EQ(shownPaper(100, 0, 0, kInch).text.view(), "3.94");
    EXPECT_EQ(shownPaper(100, 0, 0, kInch).value, 3.94f);
}

TEST(ShownPaper, ReplacesTheLengthThatTheLastPaperLeft)
{
    EXPECT_TRUE(shownPaper(62, 100, 100, kDecimal).replacesField);
}

TEST(ShownPaper, LeavesATypedLengthThroughAChangeOfPaper)
{
    EXPECT_FALSE(shownPaper(62, 100, 80, kDecimal).replacesField);
}

TEST(ShownPaper, LeavesTheFieldOfTheSamePaper)
{
    EXPECT_FALSE(shownPaper(100, 100, 100, kDecimal).replacesField);
    EXPECT_FALSE(shownPaper(100.04, 100, 80, kDecimal).replacesField); // reads 100.0 as well
}

TEST(SavedLength, IsThePapersTextReadBack)
{
    EXPECT_EQ(lengthOfPaper(lengthText(30.96, Unit::Millimetres, false), kDecimal), 31.0);
    EXPECT_EQ(lengthOfPaper(lengthText(30.96, Unit::Millimetres, true), kWhole), 30.0);
    EXPECT_DOUBLE_EQ(lengthOfPaper(lengthText(100, Unit::Inches, false), kInch), 3.94 / 0.0393701);
}

TEST(SavedLength, IsTheFieldsNumberInMillimetres)
{
    EXPECT_EQ(lengthOfField(field("30.96"), kDecimal), 30.96);
    EXPECT_DOUBLE_EQ(lengthOfField(field("1.5"), kInch), 1.5 / 0.0393701);
}

TEST(SavedLength, LiftsAPaperOf15MillimetresToTheMinimumOf20)
{
    EXPECT_EQ(savedLengthText(15, tape::kContinuousTape, kDecimal).view(), "20.0");
    EXPECT_EQ(savedLengthText(1500, tape::kContinuousTape, kDecimal).view(), "1000.0");
    EXPECT_EQ(savedLengthText(50, tape::kContinuousTape, kDecimal).view(), "50.0");
}

TEST(SavedLength, KeepsALabelOf15Millimetres)
{
    EXPECT_EQ(savedLengthText(15, tape::kFixedLengthLabel, kDecimal).view(), "15.0");
    EXPECT_EQ(savedLengthText(1500, tape::kFixedLengthLabel, kDecimal).view(), "1500.0");
}

TEST(SavedLength, WritesAnInchAndAHalfAs38Point1)
{
    EXPECT_EQ(savedLengthText(lengthOfField(field("1.50"), kInch), 0, kInch).view(), "38.1");
}

TEST(SavedLength, CutsWholeMillimetres)
{
    EXPECT_EQ(savedLengthText(30.9, 0, kWhole).view(), "30");
    PanelRules inches = rulesFor(Unit::Inches, true, true);
    EXPECT_EQ(savedLengthText(lengthOfField(field("1.00"), inches), 0, inches).view(), "25");
}

TEST(SavedMargin, IsTheFieldsNumberInMillimetres)
{
    EXPECT_EQ(marginOfField(field("3.25"), kDecimal), 3.25);
    EXPECT_DOUBLE_EQ(marginOfField(field("0.5"), kInch), 0.5 / 0.0393701);
}

TEST(SavedMargin, IsTheDefaultAsItWouldBeShown)
{
    EXPECT_EQ(marginOfDefault(3.11, kDecimal), 3.2);
    EXPECT_EQ(marginOfDefault(3.11, kWhole), 4.0);
    EXPECT_DOUBLE_EQ(marginOfDefault(3.11, kInch), 0.12 / 0.0393701); // 0.1224
}

TEST(SavedMargin, SnapsLessThanATenthAboveTheMinimumToIt)
{
    EXPECT_EQ(savedMarginText(3.05, 0, kDecimal).view(), "3.0");
    EXPECT_EQ(savedMarginText(3.099, 0, kDecimal).view(), "3.0");
    EXPECT_EQ(savedMarginText(3.1, 0, kDecimal).view(), "3.1");
    EXPECT_EQ(savedMarginText(3.05, tape::kFixedLengthLabel, kDecimal).view(), "3.0");
}

TEST(SavedMargin, KeepsATenthAboveAnyMinimumOfOneDecimal)
{
    for (int tenths = 0; tenths <= 500; ++tenths) {
        PanelRules rules = kDecimal;
        rules.limits.minMargin = static_cast<float>(tenths / 10.0);
        const NumberText above = oneDecimalText((tenths + 1) / 10.0);
        ASSERT_EQ(
            savedMarginText(leadingDouble(above.view()), tape::kFixedLengthLabel, rules).view(),
            above.view());
    }
}

TEST(SavedMargin, IsNeverLiftedAboveAMinimumOfOneDecimal)
{
    for (int tenths = 0; tenths <= 500; ++tenths) {
        PanelRules rules = kDecimal;
        rules.limits.minMargin = static_cast<float>(tenths / 10.0);
        ASSERT_EQ(savedMarginText(tenths / 10.0, tape::kFixedLengthLabel, rules).view(),
                  oneDecimalText(tenths / 10.0).view());
    }
}

TEST(SavedMargin, IsHeldToTheLimitsOnContinuousTapeOnly)
{
    EXPECT_EQ(savedMarginText(60, tape::kContinuousTape, kDecimal).view(), "50.0");
    EXPECT_EQ(savedMarginText(60, tape::kFixedLengthLabel, kDecimal).view(), "60.0");
    EXPECT_EQ(savedMarginText(0, tape::kContinuousTape, kDecimal).view(), "3.0");
    EXPECT_EQ(savedMarginText(0, tape::kFixedLengthLabel, kDecimal).view(), "3.0"); // snapped
}

TEST(SavedMargin, RoundsUp)
{
    EXPECT_EQ(savedMarginText(4.01, 0, kDecimal).view(), "4.1");
    EXPECT_EQ(savedMarginText(4.2, 0, kDecimal).view(), "4.2");
    EXPECT_EQ(savedMarginText(4.01, 0, kWhole).view(), "5");
    EXPECT_EQ(savedMarginText(4, 0, kWhole).view(), "4");
}

} // namespace
} // namespace pagesettings
