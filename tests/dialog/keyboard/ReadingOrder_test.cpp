#include "dialog/keyboard/ReadingOrder.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace dialog {
namespace {

using Order = std::vector<std::size_t>;

TEST(ReadingOrder, GoesDownTheRowsAndAlongEachFromTheLeft)
{
    EXPECT_EQ(readingOrder({}), Order());
    EXPECT_EQ(readingOrder({{200, 10, 50, 24}, {10, 10, 50, 24}, {100, 90, 50, 24}}),
              (Order{2, 1, 0}));
}

TEST(ReadingOrder, GoesByTheUpperEdges)
{
    // A tall group of rows beside one field stands in the field's row.
    EXPECT_EQ(readingOrder({{10, 0, 50, 20}, {200, 10, 100, 90}, {10, 78, 50, 20}}),
              (Order{2, 1, 0}));
}

TEST(ReadingOrder, TakesTopsLessThanEightPointsApartForOneRow)
{
    EXPECT_EQ(readingOrder({{100, 50, 10, 20}, {10, 43, 10, 20}}), (Order{1, 0}));
    EXPECT_EQ(readingOrder({{100, 50, 10, 20}, {10, 42, 10, 20}}), (Order{0, 1}));
}

TEST(ReadingOrder, LeavesWhatStandsAtOnePlaceAsItWas)
{
    EXPECT_EQ(readingOrder({{10, 50, 10, 20}, {10, 50, 30, 20}, {10, 50, 20, 20}}),
              (Order{0, 1, 2}));
}

TEST(ReadingOrder, NamesEveryFrameOnceWhateverTheirPlaces)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-50, 50);
    for (int round = 0; round < 2000; ++round) {
        std::vector<Frame> frames(random() % 20);
        for (Frame& frame : frames) {
            frame = {place(random), place(random), 10, 10};
        }
        Order order = readingOrder(frames);
        for (std::size_t i = 1; i < order.size(); ++i) {
            const Frame& before = frames[order[i - 1]];
            const Frame& after = frames[order[i]];
            EXPECT_TRUE(before.y > after.y || (after.y - before.y < 8 && before.x <= after.x));
        }
        std::sort(order.begin(), order.end());
        for (std::size_t i = 0; i < frames.size(); ++i) {
            ASSERT_EQ(order.at(i), i);
        }
    }
}

} // namespace
} // namespace dialog
