#include "pagesettings/ChoiceRules.hpp"

#include <gtest/gtest.h>

#include <iterator>

namespace pagesettings {
namespace {

TEST(ItemMasks, AreTheSingleBitsThatNameTheGroups)
{
    const std::int32_t expected[] = {1, 2, 4, 8, 16, 131072};
    ASSERT_EQ(std::size(kAllItems), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_EQ(kAllItems[i], expected[i]);
    EXPECT_EQ(kQualityItem, 4);
    EXPECT_EQ(kResolutionItem, 8);
    EXPECT_EQ(kCompressItem, 16);
    EXPECT_EQ(kPrintModeItem, 131072);
}

TEST(QualityGroup, IsDisabledByTheSecondResolution)
{
    EXPECT_EQ(qualityGroupFor(1, true), QualityGroup::Disabled);
    EXPECT_EQ(qualityGroupFor(1, false), QualityGroup::Unchanged);
}

TEST(QualityGroup, IsEnabledAgainByTheFirstResolution)
{
    EXPECT_EQ(qualityGroupFor(0, false), QualityGroup::Enabled);
    EXPECT_EQ(qualityGroupFor(0, true), QualityGroup::Unchanged);
}

TEST(QualityGroup, StaysAsItIsOnAnyOtherRow)
{
    for (const std::ptrdiff_t row : {-1, 2, 3, 1999}) {
        EXPECT_EQ(qualityGroupFor(row, true), QualityGroup::Unchanged);
        EXPECT_EQ(qualityGroupFor(row, false), QualityGroup::Unchanged);
    }
}

TEST(QualityToSave, IsTheChosenOneOnTheFirstResolutionOnly)
{
    EXPECT_EQ(qualityRowToSave(1, 0), 1);
    EXPECT_EQ(qualityRowToSave(5, 0), 5);
    EXPECT_EQ(qualityRowToSave(-1, 0), -1);
    EXPECT_EQ(qualityRowToSave(1, 1), 0);
    EXPECT_EQ(qualityRowToSave(1, 2), 0);
    EXPECT_EQ(qualityRowToSave(1, -1), 0);
}

TEST(CompressGroup, NeedsUSBAndAResolutionOption)
{
    EXPECT_TRUE(isCompressEnabled(true, true));
    EXPECT_FALSE(isCompressEnabled(true, false));
    EXPECT_FALSE(isCompressEnabled(false, true));
    EXPECT_FALSE(isCompressEnabled(false, false));
}

} // namespace
} // namespace pagesettings
