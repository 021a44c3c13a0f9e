#include "pagesettings/PrinterDot.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace pagesettings {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

PanelRules rulesFor(Unit unit, bool wholeMargins)
{
    PanelRules rules;
    rules.unit = unit;
    rules.wholeMargins = wholeMargins;
    return rules;
}

const PanelRules kDecimal = rulesFor(Unit::Millimetres, false);
const PanelRules kWhole = rulesFor(Unit::Millimetres, true);
const PanelRules kInch = rulesFor(Unit::Inches, false);

TEST(LeastStep, IsATenthAWholeMillimetreOrAHundredthOfAnInch)
{
    EXPECT_EQ(leastStepMillimetres(kDecimal), 0.1);
    EXPECT_EQ(leastStepMillimetres(kWhole), 1.0);
    EXPECT_DOUBLE_EQ(leastStepMillimetres(kInch), 0.01 / 0.0393701);
    EXPECT_DOUBLE_EQ(leastStepMillimetres(rulesFor(Unit::Inches, true)), 0.01 / 0.0393701);
}

TEST(PrinterDot, TakesTheVerticalResolutionBehindTheX)
{
    EXPECT_DOUBLE_EQ(dotMillimetres("300x1dpi", kDecimal), 25.4);
    EXPECT_DOUBLE_EQ(dotMillimetres("300x100dpi", kDecimal), 0.254);
    EXPECT_DOUBLE_EQ(dotMillimetres("100x180dpi", kDecimal), 25.4 / 180);
    EXPECT_DOUBLE_EQ(dotMillimetres("10x20x40dpi", kDecimal), 25.4 / 20);
}

TEST(PrinterDot, ReadsXAndDpiInAnyLetterCase)
{
    EXPECT_DOUBLE_EQ(dotMillimetres("300X100DPI", kDecimal), 0.254);
    EXPECT_DOUBLE_EQ(dotMillimetres("300x100Dpi", kDecimal), 0.254);
    EXPECT_DOUBLE_EQ(dotMillimetres("DPI_X100", kDecimal), 0.254);
}

TEST(PrinterDot, IsAtLeastATenthOfAMillimetre)
{
    EXPECT_EQ(dotMillimetres("300x300dpi", kDecimal), 0.1); // 0.0847
    EXPECT_EQ(dotMillimetres("300x254dpi", kDecimal), 0.1); // exactly
    EXPECT_GT(dotMillimetres("300x253dpi", kDecimal), 0.1);
}

TEST(PrinterDot, IsAtLeastAMillimetreWhereMarginsAreWhole)
{
    EXPECT_EQ(dotMillimetres("300x300dpi", kWhole), 1.0);
    EXPECT_DOUBLE_EQ(dotMillimetres("300x20dpi", kWhole), 1.27);
}

TEST(PrinterDot, IsAtLeastAHundredthOfAnInch)
{
    EXPECT_DOUBLE_EQ(dotMillimetres("300x300dpi", kInch), 0.01 / 0.0393701);
    EXPECT_DOUBLE_EQ(dotMillimetres("300x90dpi", kInch), 25.4 / 90);
    // 0.254 mm times the rounded factor is a little above 0.01 inch.
    EXPECT_DOUBLE_EQ(dotMillimetres("300x100dpi", kInch), 0.254);
}

TEST(PrinterDot, IsInfiniteWithoutDpiXOrNumber)
{
    for (const PanelRules& rules : {kDecimal, kWhole, kInch}) {
        EXPECT_EQ(dotMillimetres("300x600", rules), kInfinity);
        EXPECT_EQ(dotMillimetres("300dpi", rules), kInfinity);
        EXPECT_EQ(dotMillimetres("Draft", rules), kInfinity);
        EXPECT_EQ(dotMillimetres("300xdpi", rules), kInfinity);
        EXPECT_EQ(dotMillimetres("300x0dpi", rules), kInfinity);
        EXPECT_EQ(dotMillimetres("dpix", rules), kInfinity);
        EXPECT_EQ(dotMillimetres("", rules), kInfinity);
    }
}

TEST(PrinterDot, IsTheLeastStepForAResolutionBeyondAnyInteger)
{
    EXPECT_EQ(dotMillimetres("300x99999999999999999999dpi", kDecimal), 0.1);
    EXPECT_EQ(dotMillimetres("300x4294967295dpi", kDecimal), 0.1);
}

} // namespace
} // namespace pagesettings
