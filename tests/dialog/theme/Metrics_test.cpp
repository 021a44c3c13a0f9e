#include "dialog/theme/Metrics.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace dialog;

TEST(Hairline, IsOnePixelUpToTwicePlainSizeAndTwoFromThere)
{
    EXPECT_DOUBLE_EQ(hairline(1), 1);
    EXPECT_DOUBLE_EQ(hairline(1.5), 1 / 1.5);
    EXPECT_DOUBLE_EQ(hairline(2), 1);
    EXPECT_DOUBLE_EQ(hairline(2.5), 2 / 2.5);
}

TEST(Hairline, IsNeverThinnerThanAPixel)
{
    EXPECT_DOUBLE_EQ(hairline(0.5), 2);
}

TEST(Hairline, TakesAScaleThatIsNoneForOne)
{
    EXPECT_DOUBLE_EQ(hairline(0), 1);
    EXPECT_DOUBLE_EQ(hairline(-2), 1);
    EXPECT_DOUBLE_EQ(hairline(std::numeric_limits<double>::quiet_NaN()), 1);
    EXPECT_DOUBLE_EQ(hairline(std::numeric_limits<double>::infinity()), 1);
}

TEST(WholePixels, RoundsToTheNearestPixel)
{
    EXPECT_DOUBLE_EQ(wholePixels(2, 1), 2);
    EXPECT_DOUBLE_EQ(wholePixels(1.5, 2), 1.5);
    EXPECT_DOUBLE_EQ(wholePixels(2, 1.5), 2);         // 3 pixels
    EXPECT_DOUBLE_EQ(wholePixels(1, 1.5), 2 / 1.5);   // 1.5 pixels become 2
    EXPECT_DOUBLE_EQ(wholePixels(1.2, 1.5), 2 / 1.5); // 1.8 pixels become 2
}

TEST(WholePixels, NeverVanishes)
{
    EXPECT_DOUBLE_EQ(wholePixels(0, 2), 0.5);
    EXPECT_DOUBLE_EQ(wholePixels(0.1, 1), 1);
}

TEST(KnobShare, GoesFromTheLowEndToTheHighEnd)
{
    EXPECT_DOUBLE_EQ(knobShare(10, 10, 1000), 0);
    EXPECT_DOUBLE_EQ(knobShare(505, 10, 1000), 0.5);
    EXPECT_DOUBLE_EQ(knobShare(1000, 10, 1000), 1);
}

TEST(KnobShare, StaysOnTheTrack)
{
    EXPECT_DOUBLE_EQ(knobShare(5, 10, 1000), 0);
    EXPECT_DOUBLE_EQ(knobShare(2000, 10, 1000), 1);
}

TEST(KnobShare, StandsAtTheLowEndWhereThereIsNoRange)
{
    EXPECT_DOUBLE_EQ(knobShare(10, 10, 10), 0);
    EXPECT_DOUBLE_EQ(knobShare(10, 20, 5), 0);
    EXPECT_DOUBLE_EQ(knobShare(std::numeric_limits<double>::quiet_NaN(), 0, 1), 0);
}

} // namespace
