#include "pagesettings/SummaryLines.hpp"

#include <gtest/gtest.h>

namespace pagesettings {
namespace {

PanelRules rulesFor(Unit unit, bool wholeLengths = false)
{
    return {unit, wholeLengths, false, {20, 1000, 3, 50}};
}

const PanelRules kDecimal = rulesFor(Unit::Millimetres);
const PanelRules kWhole = rulesFor(Unit::Millimetres, true);
const PanelRules kInch = rulesFor(Unit::Inches);

TEST(SummaryLength, LeavesAWholeLengthWithinTheLimits)
{
    EXPECT_EQ(clampedLengthText("29", kWhole).view(), "29");
}

TEST(SummaryLength, RoundsAFieldTextUpToTenths)
{
    EXPECT_EQ(clampedLengthText("29.74", kDecimal).view(), "29.8");
    EXPECT_EQ(clampedLengthText("29.7", kDecimal).view(), "29.7");
}

TEST(SummaryLength, RoundsAFieldTextUpToWholeMillimetres)
{
    EXPECT_EQ(clampedLengthText("29.1", kWhole).view(), "30");
}

TEST(SummaryLength, ShowsTheMinimumBelowItAndTheMaximumAboveIt)
{
    EXPECT_EQ(clampedLengthText("5", kDecimal).view(), "20.0");
    EXPECT_EQ(clampedLengthText("5000", kDecimal).view(), "1000.0");
    EXPECT_EQ(clampedLengthText("", kWhole).view(), "20");
    EXPECT_EQ(clampedLengthText("garbage", kWhole).view(), "20");
}

TEST(SummaryLength, DoesNotRoundUpInInches)
{
    EXPECT_EQ(clampedLengthText("1.234", kInch).view(), "1.23");
    EXPECT_EQ(clampedLengthText("0.1", kInch).view(), "0.79");
    EXPECT_EQ(clampedLengthText("99", kInch).view(), "39.37");
    EXPECT_EQ(clampedLengthText("1.2", rulesFor(Unit::Inches, true)).view(), "1.20");
}

TEST(SummaryValueKey, NamesThreePrintModes)
{
    EXPECT_STREQ(summaryValueKey(SummaryLine::PrintMode, 0, false), "RS_VnResolS300300");
    EXPECT_STREQ(summaryValueKey(SummaryLine::PrintMode, 1, false), "RS_VnResolQ300300");
    EXPECT_STREQ(summaryValueKey(SummaryLine::PrintMode, 2, true), "RS_VnResolQ300600");
    EXPECT_EQ(summaryValueKey(SummaryLine::PrintMode, 3, false), nullptr);
}

TEST(SummaryValueKey, NamesTwoQualities)
{
    EXPECT_STREQ(summaryValueKey(SummaryLine::Quality, 0, false), "RS_QualitySpeed");
    EXPECT_STREQ(summaryValueKey(SummaryLine::Quality, 1, true), "RS_QualityQuality");
    EXPECT_EQ(summaryValueKey(SummaryLine::Quality, 2, false), nullptr);
}

TEST(SummaryValueKey, NamesTwoResolutionsOfTheZRLine)
{
    EXPECT_STREQ(summaryValueKey(SummaryLine::Resolution, 0, true), "RS_Resol300300");
    EXPECT_STREQ(summaryValueKey(SummaryLine::Resolution, 1, true), "RS_Resol300600");
    EXPECT_EQ(summaryValueKey(SummaryLine::Resolution, 2, true), nullptr);
}

TEST(SummaryValueKey, NamesThreeResolutionsOfOtherPrinters)
{
    EXPECT_STREQ(summaryValueKey(SummaryLine::Resolution, 0, false), "RS_Resol180360");
    EXPECT_STREQ(summaryValueKey(SummaryLine::Resolution, 1, false), "RS_Resol360360");
    EXPECT_STREQ(summaryValueKey(SummaryLine::Resolution, 2, false), "RS_Resol360720");
    EXPECT_EQ(summaryValueKey(SummaryLine::Resolution, 3, false), nullptr);
}

TEST(SummaryValueKey, NamesTwoCompressions)
{
    EXPECT_STREQ(summaryValueKey(SummaryLine::Compress, 0, false), "RS_CompressOFF");
    EXPECT_STREQ(summaryValueKey(SummaryLine::Compress, 1, false), "RS_CompressON");
    EXPECT_EQ(summaryValueKey(SummaryLine::Compress, 2, false), nullptr);
}

TEST(SummaryValueKey, NamesNothingForAChoiceThatIsNotMarked)
{
    for (const SummaryLine line : {SummaryLine::PrintMode, SummaryLine::Quality,
                                   SummaryLine::Resolution, SummaryLine::Compress})
        EXPECT_EQ(summaryValueKey(line, -1, false), nullptr);
}

TEST(QualityLine, IsHiddenByTheSecondResolutionOnly)
{
    EXPECT_FALSE(showsQualityLine(1));
    EXPECT_TRUE(showsQualityLine(0));
    EXPECT_TRUE(showsQualityLine(-1));
    EXPECT_TRUE(showsQualityLine(2));
}

} // namespace
} // namespace pagesettings
