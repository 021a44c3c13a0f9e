#include "tape/Units.hpp"

#include <gtest/gtest.h>

#include <limits>

using namespace tape;

TEST(MillimetresAndInches, ConvertByTheRoundedFactor)
{
    EXPECT_DOUBLE_EQ(inchesFromMillimetres(100), 3.93701);
    EXPECT_DOUBLE_EQ(inchesFromMillimetres(25.4), 1.00000054);
    EXPECT_EQ(inchesFromMillimetres(0), 0);
    EXPECT_DOUBLE_EQ(inchesFromMillimetres(-100), -3.93701);
}

TEST(MillimetresAndInches, MakeAnInchShorterThanTwentyFivePointFourMillimetres)
{
    EXPECT_NEAR(millimetresFromInches(1), 25.399986284007, 1e-11);
    EXPECT_NEAR(millimetresFromInches(1.5), 38.09997942601, 1e-10);
    EXPECT_NE(millimetresFromInches(1), 25.4);
}

TEST(MillimetresAndInches, ComeBackToTheSameLength)
{
    EXPECT_DOUBLE_EQ(millimetresFromInches(inchesFromMillimetres(61.7)), 61.7);
}

TEST(Points, BecomeInchesAndThenMillimetres)
{
    EXPECT_NEAR(millimetresFromPoints(72), 25.399986284007, 1e-11);
    EXPECT_NEAR(millimetresFromPoints(36), 12.6999931420037, 1e-11);
    EXPECT_EQ(millimetresFromPoints(0), 0);
}

TEST(RoundingHalfAwayFromZero, RoundsTheHalvesOutwards)
{
    EXPECT_EQ(roundHalfAwayFromZero(2.5), 3);
    EXPECT_EQ(roundHalfAwayFromZero(-2.5), -3);
    EXPECT_EQ(roundHalfAwayFromZero(0.5), 1);
    EXPECT_EQ(roundHalfAwayFromZero(-0.5), -1);
    EXPECT_EQ(roundHalfAwayFromZero(3.5), 4); // not to the even neighbour
}

TEST(RoundingHalfAwayFromZero, CutsWhatIsBelowAHalf)
{
    EXPECT_EQ(roundHalfAwayFromZero(2.49), 2);
    EXPECT_EQ(roundHalfAwayFromZero(-2.49), -2);
    EXPECT_EQ(roundHalfAwayFromZero(0.49999999999999994), 0); // adding a half would make it 1
    EXPECT_EQ(roundHalfAwayFromZero(0), 0);
}

TEST(RoundingHalfAwayFromZero, KeepsWholeNumbersThatSinglePrecisionCannotHold)
{
    EXPECT_EQ(roundHalfAwayFromZero(4503599627370497.0), 4503599627370497);
    EXPECT_EQ(roundHalfAwayFromZero(-4503599627370497.0), -4503599627370497);
}

TEST(RoundingHalfAwayFromZero, StopsAtTheEndsOfTheInteger)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(roundHalfAwayFromZero(infinity), INTPTR_MAX);
    EXPECT_EQ(roundHalfAwayFromZero(-infinity), INTPTR_MIN);
    EXPECT_EQ(roundHalfAwayFromZero(9223372036854775808.0), INTPTR_MAX);
    EXPECT_EQ(roundHalfAwayFromZero(-9223372036854775808.0), INTPTR_MIN);
    EXPECT_EQ(roundHalfAwayFromZero(std::numeric_limits<double>::quiet_NaN()), 0);
}
