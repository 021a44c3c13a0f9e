#include "dialog/preview/InkOnTape.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

constexpr Color kTape{250, 200, 0};
constexpr Color kEdge{100, 0, 10};

using Bytes = std::vector<std::uint8_t>;

Bytes pixel(const Bytes& pixels, int columns, int x, int y)
{
    const auto first = pixels.begin() + 4 * (y * columns + x);
    return {first, first + 4};
}

TEST(InkOnTape, IsTheTapeWhereThereIsNoInkAndBlackWhereItIsFull)
{
    EXPECT_EQ(inkOnTape({0, 255}, 2, 1, kTape, kEdge, 0), (Bytes{250, 200, 0, 255, 0, 0, 0, 255}));
}

TEST(InkOnTape, LetsTheTapeThroughFaintInkToTheNearest)
{
    // 250 * 155 / 255 = 151.96, 200 * 155 / 255 = 121.57; 250 * 2 / 255 = 1.96, 200 * 2 / 255
    // = 1.57.
    EXPECT_EQ(inkOnTape({100, 253}, 2, 1, kTape, kEdge, 0),
              (Bytes{152, 122, 0, 255, 2, 2, 0, 255}));
}

TEST(InkOnTape, HasAnEdgeAllRoundBeneathTheInk)
{
    Bytes ink(5 * 4, 0);
    ink[0] = 51; // a fifth, in the corner
    const Bytes pixels = inkOnTape(ink, 5, 4, kTape, kEdge, 1);
    ASSERT_EQ(pixels.size(), 5U * 4U * 4U);
    EXPECT_EQ(pixel(pixels, 5, 0, 0), (Bytes{80, 0, 8, 255}));
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 5; ++x) {
            const bool inside = x > 0 && x < 4 && y > 0 && y < 3;
            if (x + y > 0) {
                EXPECT_EQ(pixel(pixels, 5, x, y),
                          inside ? (Bytes{250, 200, 0, 255}) : (Bytes{100, 0, 10, 255}))
                    << x << ' ' << y;
            }
        }
    }
}

TEST(InkOnTape, IsAllEdgeWhereThatIsWiderThanHalf)
{
    EXPECT_EQ(inkOnTape({0, 0, 0}, 3, 1, kTape, kEdge, 2),
              (Bytes{100, 0, 10, 255, 100, 0, 10, 255, 100, 0, 10, 255}));
}

TEST(InkOnTape, IsEmptyWhenTheInkIsNotThatOfItsPixels)
{
    EXPECT_TRUE(inkOnTape({}, 0, 0, kTape, kEdge, 1).empty());
    EXPECT_TRUE(inkOnTape({1, 2, 3}, 2, 2, kTape, kEdge, 1).empty());
    EXPECT_TRUE(inkOnTape({1}, -1, -1, kTape, kEdge, 1).empty());
}

} // namespace
} // namespace dialog
