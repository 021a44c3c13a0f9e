#include "plugin/SystemVersion.hpp"

#include <gtest/gtest.h>

using plugin::isLeopardOrLater;

TEST(LeopardOrLater, IsFalseForATigerRelease)
{
    EXPECT_FALSE(isLeopardOrLater({10, 4, 0}));
    EXPECT_FALSE(isLeopardOrLater({10, 4, 11}));
    EXPECT_FALSE(isLeopardOrLater({10, 0, 0}));
}

TEST(LeopardOrLater, BeginsAtTenPointFive)
{
    EXPECT_TRUE(isLeopardOrLater({10, 5, 0}));
    EXPECT_TRUE(isLeopardOrLater({10, 5, 8}));
    EXPECT_TRUE(isLeopardOrLater({10, 14, 0}));
}

TEST(LeopardOrLater, IsFalseForEveryReleaseBelowTen)
{
    EXPECT_FALSE(isLeopardOrLater({9, 9, 9}));
    EXPECT_FALSE(isLeopardOrLater({0, 5, 0}));
    EXPECT_FALSE(isLeopardOrLater({-1, 99, 0}));
}

TEST(LeopardOrLater, IsTrueForEveryReleaseAboveTenWhateverTheMinor)
{
    EXPECT_TRUE(isLeopardOrLater({11, 0, 0}));
    EXPECT_TRUE(isLeopardOrLater({11, 4, 0}));
    EXPECT_TRUE(isLeopardOrLater({26, 1, 0}));
}

TEST(LeopardOrLater, TakesAnUnansweredQueryForTooOld)
{
    EXPECT_FALSE(isLeopardOrLater({}));
    EXPECT_EQ(plugin::SystemVersion{}.major, 10);
    EXPECT_EQ(plugin::SystemVersion{}.minor, 4);
    EXPECT_EQ(plugin::SystemVersion{}.bugFix, 0);
}
