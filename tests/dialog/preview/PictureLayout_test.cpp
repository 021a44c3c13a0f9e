#include "dialog/preview/PictureLayout.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace dialog {
namespace {

using pagesettings::Unit;

void expectFrame(const Frame& found, const Frame& expected)
{
    EXPECT_NEAR(found.x, expected.x, 1e-9);
    EXPECT_NEAR(found.y, expected.y, 1e-9);
    EXPECT_NEAR(found.width, expected.width, 1e-9);
    EXPECT_NEAR(found.height, expected.height, 1e-9);
}

const Label kLabel{24, 100, 3, 1, 2};

// 34 points are kept beside the tape for numbers and unit, 28 below it for the ruler.
TEST(LayOutPicture, FillsTheWidthWithALongLabel)
{
    const auto picture = layOutPicture({284, 228}, kLabel, nullptr, Unit::Millimetres);
    ASSERT_TRUE(picture);
    EXPECT_DOUBLE_EQ(picture->scale, 2.5); // 250 / 100
    expectFrame(picture->tape, {8, 70, 250, 60});
    expectFrame(picture->leftMargin, {8, 70, 7.5, 60});
    expectFrame(picture->rightMargin, {250.5, 70, 7.5, 60});
    expectFrame(picture->stripAbove, {15.5, 70, 235, 2.5});
    expectFrame(picture->stripBelow, {15.5, 125, 235, 5});
    EXPECT_DOUBLE_EQ(picture->rulerTop, 134);
    EXPECT_DOUBLE_EQ(picture->unitLeft, 262);
    EXPECT_DOUBLE_EQ(picture->ticks.front().x, 8);
    EXPECT_DOUBLE_EQ(picture->ticks.back().x, 258);
}

TEST(LayOutPicture, NeverDrawsAMillimetreLargerThanFourPoints)
{
    const auto picture = layOutPicture({284, 228}, {24, 30, 3, 0, 0}, nullptr, Unit::Millimetres);
    ASSERT_TRUE(picture);
    EXPECT_DOUBLE_EQ(picture->scale, 4);
    expectFrame(picture->tape, {73, 52, 120, 96}); // in the middle: 8 + (250 - 120) / 2
}

TEST(LayOutPicture, FitsALowRoomToo)
{
    const auto picture = layOutPicture({284, 52}, {24, 30, 3, 0, 0}, nullptr, Unit::Millimetres);
    ASSERT_TRUE(picture);
    EXPECT_DOUBLE_EQ(picture->scale, 1); // 24 points for 24 mm
}

TEST(LayOutPicture, PutsTheDocumentWhereItIsPlaced)
{
    Placement place;
    place.x = 10;
    place.y = -2;
    place.along = 60;
    place.across = 28;
    const auto picture = layOutPicture({284, 228}, kLabel, &place, Unit::Millimetres);
    ASSERT_TRUE(picture);
    expectFrame(picture->document, {33, 65, 150, 70});
    EXPECT_FALSE(picture->documentIsCut);
    place.beyondLabel = 0.3;
    EXPECT_TRUE(layOutPicture({284, 228}, kLabel, &place, Unit::Millimetres)->documentIsCut);
}

TEST(LayOutPicture, IsNothingWithoutRoomOrLabel)
{
    EXPECT_FALSE(layOutPicture({34, 228}, kLabel, nullptr, Unit::Millimetres));
    EXPECT_FALSE(layOutPicture({284, 28}, kLabel, nullptr, Unit::Millimetres));
    EXPECT_FALSE(layOutPicture({284, 228}, {}, nullptr, Unit::Millimetres));
    EXPECT_FALSE(layOutPicture({284, 228}, {24, std::numeric_limits<double>::infinity(), 3, 0, 0},
                               nullptr, Unit::Millimetres));
}

TEST(LayOutPicture, KeepsEverythingInTheRoomAndToScale)
{
    for (double length = 4; length < 100'000; length *= 1.21) {
        for (const double width : {3.5, 6.0, 24.0, 62.0, 300.0}) {
            const Size room{276, 150};
            const auto picture =
                layOutPicture(room, {width, length, 1, 0.5, 0.5}, nullptr, Unit::Inches);
            ASSERT_TRUE(picture);
            const Frame& tape = picture->tape;
            ASSERT_NEAR(tape.width / tape.height, length / width, length / width * 1e-9);
            ASSERT_GE(tape.x, 8 - 1e-9);
            ASSERT_GE(tape.y, -1e-9);
            ASSERT_LE(picture->unitLeft + 22, room.width + 1e-9);
            ASSERT_LE(picture->rulerTop + kRulerHeight, room.height + 1e-9);
        }
    }
}

} // namespace
} // namespace dialog
