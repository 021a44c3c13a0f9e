#include "pagesettings/Layout.hpp"

#include <gtest/gtest.h>

namespace pagesettings {
namespace {

constexpr double kNarrow = 300;
constexpr double kWide = 351;

TEST(PanelLayout, ShowsEveryRowThatHasAChoiceToOffer)
{
    const PanelLayout layout = layoutFor({2, 2, 2, std::nullopt}, kNarrow);
    EXPECT_TRUE(layout.showsQuality);
    EXPECT_TRUE(layout.showsResolution);
    EXPECT_TRUE(layout.showsCompress);
    EXPECT_FALSE(layout.showsPrintMode);
    EXPECT_EQ(layout.heightReduction, 34);
    EXPECT_FALSE(layout.removesSeparator);
}

TEST(PanelLayout, StandsRowsBottomUpOnANarrowCompression)
{
    const PanelLayout layout = layoutFor({2, 2, 2, std::nullopt}, kNarrow);
    ASSERT_TRUE(layout.compress && layout.resolution && layout.quality);
    EXPECT_EQ(layout.compress->controlY, 20);
    EXPECT_EQ(layout.compress->labelY, 43);
    EXPECT_EQ(layout.resolution->controlY, 68);
    EXPECT_EQ(layout.resolution->labelY, 91);
    EXPECT_EQ(layout.quality->controlY, 116);
    EXPECT_EQ(layout.quality->labelY, 139);
}

TEST(PanelLayout, StandsRowsBottomUpOnAWideCompression)
{
    const PanelLayout layout = layoutFor({2, 3, 2, std::nullopt}, kWide);
    ASSERT_TRUE(layout.compress && layout.resolution && layout.quality);
    EXPECT_EQ(layout.compress->controlY, 20);
    EXPECT_EQ(layout.compress->labelY, 64);
    EXPECT_EQ(layout.resolution->controlY, 78);
    EXPECT_EQ(layout.resolution->labelY, 101);
    EXPECT_EQ(layout.quality->controlY, 126);
    EXPECT_EQ(layout.quality->labelY, 149);
}

TEST(PanelLayout, CountsACompressionExactly350PointsWideAsNarrow)
{
    const PanelLayout layout = layoutFor({2, 2, 2, std::nullopt}, 350);
    EXPECT_EQ(layout.compress->labelY, 43);
    EXPECT_EQ(layout.resolution->controlY, 68);
    EXPECT_EQ(layoutFor({}, 350).heightReduction, 48 + 48 + 48 + 34);
}

TEST(PanelLayout, TakesAwayTheHeightOfAnAbsentCompression)
{
    EXPECT_EQ(layoutFor({2, 2, std::nullopt, 2}, kWide).heightReduction, 69 + 48);
    EXPECT_EQ(layoutFor({2, 2, std::nullopt, 2}, kNarrow).heightReduction, 48 + 48);
    EXPECT_EQ(layoutFor({2, 2, std::nullopt, 2}, std::nullopt).heightReduction, 48 + 48);
    EXPECT_FALSE(layoutFor({2, 2, std::nullopt, 2}, kNarrow).showsCompress);
}

TEST(PanelLayout, CountsAMissingCompressionMatrixAsNarrow)
{
    const PanelLayout layout = layoutFor({2, 2, 2, std::nullopt}, std::nullopt);
    EXPECT_EQ(layout.compress->labelY, 43);
    EXPECT_EQ(layout.resolution->controlY, 68);
}

TEST(PanelLayout, StandsTheNextRowAtTheBottomWithoutCompression)
{
    const PanelLayout layout = layoutFor({2, 2, std::nullopt, std::nullopt}, kWide);
    EXPECT_FALSE(layout.compress);
    EXPECT_EQ(layout.resolution->controlY, 20);
    EXPECT_EQ(layout.quality->controlY, 68);
}

TEST(PanelLayout, HidesAResolutionOfOneChoice)
{
    const PanelLayout layout = layoutFor({2, 1, 2, std::nullopt}, kNarrow);
    EXPECT_FALSE(layout.showsResolution);
    EXPECT_FALSE(layout.resolution);
    EXPECT_EQ(layout.heightReduction, 48 + 34);
    EXPECT_EQ(layout.quality->controlY, 68);
    EXPECT_FALSE(layout.removesSeparator);
}

TEST(PanelLayout, HidesTheResolutionBehindPrintMode)
{
    const PanelLayout layout = layoutFor({2, 3, 2, 3}, kNarrow);
    EXPECT_FALSE(layout.showsResolution);
    EXPECT_FALSE(layout.resolution);
    EXPECT_TRUE(layout.showsPrintMode);
    EXPECT_EQ(layout.heightReduction, 48);
}

TEST(PanelLayout, LeavesAResolutionWithoutChoicesWhereItIs)
{
    const PanelLayout layout = layoutFor({2, 0, 2, std::nullopt}, kNarrow);
    EXPECT_TRUE(layout.showsResolution);
    EXPECT_FALSE(layout.resolution);
    EXPECT_EQ(layout.heightReduction, 34);
    EXPECT_EQ(layout.quality->controlY, 68);
}

TEST(PanelLayout, HidesAnAbsentQuality)
{
    const PanelLayout layout = layoutFor({std::nullopt, 2, 2, std::nullopt}, kNarrow);
    EXPECT_FALSE(layout.showsQuality);
    EXPECT_FALSE(layout.quality);
    EXPECT_EQ(layout.heightReduction, 48 + 34);
}

TEST(PanelLayout, HidesEveryRowAndTheSeparatorWithoutOptions)
{
    const PanelLayout layout = layoutFor({}, kNarrow);
    EXPECT_FALSE(layout.showsQuality || layout.showsResolution || layout.showsCompress ||
                 layout.showsPrintMode);
    EXPECT_EQ(layout.heightReduction, 178);
    EXPECT_TRUE(layout.removesSeparator);
}

TEST(PanelLayout, RemovesTheSeparatorOnlyWhenNoRowCanBeChosen)
{
    EXPECT_TRUE(layoutFor({std::nullopt, 1, std::nullopt, std::nullopt}, kNarrow).removesSeparator);
    EXPECT_FALSE(
        layoutFor({std::nullopt, 0, std::nullopt, std::nullopt}, kNarrow).removesSeparator);
    EXPECT_FALSE(
        layoutFor({std::nullopt, 2, std::nullopt, std::nullopt}, kNarrow).removesSeparator);
    EXPECT_FALSE(layoutFor({2, 1, std::nullopt, std::nullopt}, kNarrow).removesSeparator);
    EXPECT_FALSE(layoutFor({std::nullopt, 1, 2, std::nullopt}, kNarrow).removesSeparator);
    EXPECT_FALSE(layoutFor({std::nullopt, 1, std::nullopt, 3}, kNarrow).removesSeparator);
}

} // namespace
} // namespace pagesettings
