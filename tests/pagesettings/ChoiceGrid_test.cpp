#include "pagesettings/ChoiceGrid.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr float kWidth = 350;
constexpr float kHeight = 43;
constexpr float kInfinity = std::numeric_limits<float>::infinity();

ChoiceGrid gridOf(std::int32_t count, std::int32_t firstLine = 0, const ColumnWishes& wishes = {})
{
    return layOutChoices(count, kWidth, kHeight, firstLine, wishes);
}

bool overlap(const ChoiceFrame& a, const ChoiceFrame& b)
{
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

bool isInside(const ChoiceFrame& frame, float width, float height)
{
    return frame.x >= 0 && frame.y >= 0 && frame.x + frame.width <= width &&
           frame.y + frame.height <= height;
}

} // namespace

TEST(ChoiceGrid, PutsTwoChoicesBelowEachOtherOverTheFullWidth)
{
    const ChoiceGrid grid = gridOf(2);
    EXPECT_EQ(frameOfChoice(grid, 0), (ChoiceFrame{0, 0, 350, 20}));
    EXPECT_EQ(frameOfChoice(grid, 1), (ChoiceFrame{0, 23, 350, 20}));
    EXPECT_FALSE(grid.scrolls);
}

TEST(ChoiceGrid, PutsASingleChoiceIntoTheFirstLine)
{
    EXPECT_EQ(frameOfChoice(gridOf(1), 0), (ChoiceFrame{0, 0, 350, 20}));
}

TEST(ChoiceGrid, PutsThreeAndFourChoicesIntoTwoColumns)
{
    for (const std::int32_t count : {3, 4}) {
        const ChoiceGrid grid = gridOf(count);
        EXPECT_EQ(frameOfChoice(grid, 0), (ChoiceFrame{0, 0, 173, 20}));
        EXPECT_EQ(frameOfChoice(grid, 1), (ChoiceFrame{177, 0, 173, 20}));
        EXPECT_EQ(frameOfChoice(grid, 2), (ChoiceFrame{0, 23, 173, 20}));
        EXPECT_FALSE(grid.scrolls);
    }
    EXPECT_EQ(frameOfChoice(gridOf(4), 3), (ChoiceFrame{177, 23, 173, 20}));
}

TEST(ChoiceGrid, PutsFiveAndSixChoicesIntoThreeColumns)
{
    for (const std::int32_t count : {5, 6}) {
        const ChoiceGrid grid = gridOf(count);
        EXPECT_EQ(frameOfChoice(grid, 2), (ChoiceFrame{236, 0, 114, 20}));
        EXPECT_EQ(frameOfChoice(grid, 3), (ChoiceFrame{0, 23, 114, 20}));
        EXPECT_EQ(frameOfChoice(grid, 4), (ChoiceFrame{118, 23, 114, 20}));
        EXPECT_FALSE(grid.scrolls);
    }
}

TEST(ChoiceGrid, ScrollsFromTheSeventhChoiceOn)
{
    const ChoiceGrid grid = gridOf(7);
    EXPECT_TRUE(grid.scrolls);
    EXPECT_EQ(grid.lines, 3);
    EXPECT_EQ(frameOfChoice(grid, 2), (ChoiceFrame{220, 0, 106, 20}));
    EXPECT_EQ(frameOfScroller(grid, kWidth, kHeight), (ChoiceFrame{332, 0, 18, 43}));
}

TEST(ChoiceGrid, HasNoScrollerWhereEverythingFits)
{
    EXPECT_EQ(frameOfScroller(gridOf(6), kWidth, kHeight), ChoiceFrame{});
}

TEST(ChoiceGrid, HasNoFrameForAChoiceThatDoesNotExist)
{
    EXPECT_EQ(frameOfChoice(gridOf(5), -1), ChoiceFrame{});
    EXPECT_EQ(frameOfChoice(gridOf(5), 5), ChoiceFrame{});
    EXPECT_EQ(frameOfChoice(gridOf(0), 0), ChoiceFrame{});
}

TEST(ChoiceGrid, CountsANegativeNumberOfChoicesAsNone)
{
    const ChoiceGrid grid = gridOf(-3);
    EXPECT_EQ(grid.count, 0);
    EXPECT_EQ(grid.lines, 0);
    EXPECT_FALSE(grid.scrolls);
}

TEST(ChoiceGrid, GivesAWideColumnTheSpareRoomOfItsNeighbours)
{
    const ChoiceGrid grid = gridOf(5, 0, {150, 80, 60});
    EXPECT_EQ(grid.columnWidth, (ColumnWishes{167, 97, 77}));
    EXPECT_EQ(grid.columnX, (ColumnWishes{0, 171, 272}));
    EXPECT_EQ(gridOf(5, 0, {150, 80, 61}).columnWidth, (ColumnWishes{167, 97, 78})); // 51 for three
}

TEST(ChoiceGrid, LetsTheMostDemandingColumnGiveWay)
{
    EXPECT_EQ(gridOf(5, 0, {400, 80, 60}).columnWidth, (ColumnWishes{202, 80, 60}));
    EXPECT_EQ(gridOf(5, 0, {60, 400, 80}).columnWidth, (ColumnWishes{60, 202, 80}));
}

TEST(ChoiceGrid, SharesEvenlyAmongColumnsThatAllWantTooMuch)
{
    EXPECT_EQ(gridOf(5, 0, {400, 400, 400}).columnWidth, (ColumnWishes{114, 114, 114}));
}

TEST(ChoiceGrid, KeepsEvenColumnsWhereEveryTitleFits)
{
    EXPECT_EQ(gridOf(5, 0, {114, 20, 113}).columnWidth, (ColumnWishes{114, 114, 114}));
}

TEST(ChoiceGrid, MeetsTheWishesOfItsOwnColumnsAlone)
{
    // Two columns of 173; the third wish is nobody's.
    EXPECT_TRUE(meetsWishes(gridOf(4), {173, 173, 999}));
    EXPECT_FALSE(meetsWishes(gridOf(4), {173.5f, 0, 0}));
    EXPECT_FALSE(meetsWishes(gridOf(4), {0, 173.5f, 0}));
    EXPECT_FALSE(meetsWishes(gridOf(5), {0, 0, 114.5f}));
    EXPECT_TRUE(meetsWishes(gridOf(12), {}));
    EXPECT_TRUE(meetsWishes(gridOf(0), {}));
}

TEST(ChoiceGrid, ShowsOneLineInASlotThatIsTooLow)
{
    for (const float height : {19.0f, 0.0f, -5.0f}) {
        const ChoiceGrid grid = layOutChoices(2, kWidth, height, 0, {});
        EXPECT_EQ(grid.visibleLines, 1);
        EXPECT_TRUE(grid.scrolls);
    }
}

TEST(ChoiceGrid, ShowsMoreLinesInAHigherSlot)
{
    EXPECT_EQ(layOutChoices(9, kWidth, 66, 0, {}).visibleLines, 3);
    EXPECT_EQ(layOutChoices(9, kWidth, 65, 0, {}).visibleLines, 2);
    EXPECT_EQ(layOutChoices(9, kWidth, kInfinity, 0, {}).visibleLines, 1000);
}

TEST(ChoiceGrid, LeavesNoNegativeWidthInASlotThatIsTooNarrow)
{
    const ChoiceGrid grid = layOutChoices(12, 10, kHeight, 0, {});
    EXPECT_EQ(grid.columnWidth, (ColumnWishes{0, 0, 0}));
    EXPECT_EQ(layOutChoices(1, -1, kHeight, 0, {}).columnWidth[0], 0);
}

TEST(ChoiceGrid, BringsAFirstLineOutOfRangeIntoIt)
{
    EXPECT_EQ(gridOf(12, -1).firstLine, 0);
    EXPECT_EQ(gridOf(12, 99).firstLine, 2);
    EXPECT_EQ(gridOf(6, 1).firstLine, 0);
}

TEST(ChoiceGrid, PutsScrolledChoicesOutsideTheSlot)
{
    const ChoiceGrid grid = gridOf(12, 1);
    EXPECT_EQ(frameOfChoice(grid, 0).y, -23);
    EXPECT_EQ(frameOfChoice(grid, 3).y, 0);
    EXPECT_EQ(frameOfChoice(grid, 9).y, 46);
    EXPECT_FALSE(isChoiceVisible(grid, 2));
    EXPECT_TRUE(isChoiceVisible(grid, 3));
    EXPECT_TRUE(isChoiceVisible(grid, 8));
    EXPECT_FALSE(isChoiceVisible(grid, 9));
    EXPECT_FALSE(isChoiceVisible(grid, -1));
    EXPECT_FALSE(isChoiceVisible(grid, 12));
}

TEST(ChoiceAt, FindsTheChoiceUnderThePoint)
{
    const ChoiceGrid grid = gridOf(2);
    EXPECT_EQ(choiceAt(grid, 0, 0), 0);
    EXPECT_EQ(choiceAt(grid, 349.9f, 19.9f), 0);
    EXPECT_EQ(choiceAt(grid, 10, 23), 1);
}

TEST(ChoiceAt, FindsNothingInTheGapsAndOutside)
{
    const ChoiceGrid grid = gridOf(3);
    EXPECT_EQ(choiceAt(grid, 10, 20), kNoChoice);
    EXPECT_EQ(choiceAt(grid, 10, 22.9f), kNoChoice);
    EXPECT_EQ(choiceAt(grid, 175, 10), kNoChoice);
    EXPECT_EQ(choiceAt(grid, 200, 30), kNoChoice);
    EXPECT_EQ(choiceAt(grid, -1, 5), kNoChoice);
    EXPECT_EQ(choiceAt(grid, 350, 5), kNoChoice);
    EXPECT_EQ(choiceAt(grid, 5, 43), kNoChoice);
    EXPECT_EQ(choiceAt(gridOf(0), 0, 0), kNoChoice);
}

TEST(ChoiceAt, FindsNoHiddenChoiceBelowTheSlotNorOneUnderTheScroller)
{
    EXPECT_EQ(choiceAt(gridOf(12), 10, 46), kNoChoice);
    EXPECT_EQ(choiceAt(gridOf(12), 335, 10), kNoChoice);
    EXPECT_EQ(choiceAt(gridOf(12, 2), 10, 10), 6);
}

TEST(FirstLineShowing, MovesAsLittleAsPossible)
{
    EXPECT_EQ(firstLineShowing(gridOf(12), 9), 2);
    EXPECT_EQ(firstLineShowing(gridOf(12), 8), 1);
    EXPECT_EQ(firstLineShowing(gridOf(12), 5), 0);
    EXPECT_EQ(firstLineShowing(gridOf(12, 2), 0), 0);
    EXPECT_EQ(firstLineShowing(gridOf(12, 2), 6), 2);
}

TEST(FirstLineShowing, StaysForAChoiceThatDoesNotExist)
{
    EXPECT_EQ(firstLineShowing(gridOf(12, 1), -1), 1);
    EXPECT_EQ(firstLineShowing(gridOf(12, 1), 12), 1);
}

TEST(ChoiceAfterMove, RunsOnThroughTheLinesSideways)
{
    const ChoiceGrid grid = gridOf(5);
    EXPECT_EQ(choiceAfterMove(grid, 2, ChoiceMove::Right), 3);
    EXPECT_EQ(choiceAfterMove(grid, 3, ChoiceMove::Left), 2);
    EXPECT_EQ(choiceAfterMove(grid, 4, ChoiceMove::Right), 4);
    EXPECT_EQ(choiceAfterMove(grid, 0, ChoiceMove::Left), 0);
}

TEST(ChoiceAfterMove, GoesByLinesUpAndDown)
{
    const ChoiceGrid grid = gridOf(5);
    EXPECT_EQ(choiceAfterMove(grid, 1, ChoiceMove::Down), 4);
    EXPECT_EQ(choiceAfterMove(grid, 4, ChoiceMove::Up), 1);
    EXPECT_EQ(choiceAfterMove(grid, 1, ChoiceMove::Up), 1);
    EXPECT_EQ(choiceAfterMove(grid, 4, ChoiceMove::Down), 4);
    EXPECT_EQ(choiceAfterMove(grid, 3, ChoiceMove::Up), 0);
    EXPECT_EQ(choiceAfterMove(grid, 3, ChoiceMove::Down), 3);
}

TEST(ChoiceAfterMove, LeadsFromAboveAnEmptyPlaceToTheLastChoice)
{
    EXPECT_EQ(choiceAfterMove(gridOf(5), 2, ChoiceMove::Down), 4);
    EXPECT_EQ(choiceAfterMove(gridOf(3), 1, ChoiceMove::Down), 2);
}

TEST(ChoiceAfterMove, StartsAtTheFirstChoiceWhenNoneIsChosen)
{
    EXPECT_EQ(choiceAfterMove(gridOf(5), -1, ChoiceMove::Down), 0);
    EXPECT_EQ(choiceAfterMove(gridOf(5), 5, ChoiceMove::Left), 0);
    EXPECT_EQ(choiceAfterMove(gridOf(5), 7, ChoiceMove::Left), 0);
}

TEST(ChoiceAfterMove, StaysWhereItIsOnceAChoiceIsMade)
{
    const ChoiceGrid grid = gridOf(5);
    for (std::int32_t index = 0; index < 5; ++index)
        EXPECT_EQ(choiceAfterMove(grid, index, ChoiceMove::Stay), index);
    EXPECT_EQ(choiceAfterMove(grid, kNoChoice, ChoiceMove::Stay), 0);
    EXPECT_EQ(choiceAfterMove(grid, 5, ChoiceMove::Stay), 0);
}

TEST(ChoiceAfterMove, LeadsNowhereInAnEmptyGroup)
{
    EXPECT_EQ(choiceAfterMove(gridOf(0), 0, ChoiceMove::Down), kNoChoice);
}

TEST(ChoiceScroller, TellsWhereTheFirstLineStands)
{
    EXPECT_EQ(scrollerValue(gridOf(12, 0)), 0.0f);
    EXPECT_EQ(scrollerValue(gridOf(12, 1)), 0.5f);
    EXPECT_EQ(scrollerValue(gridOf(12, 2)), 1.0f);
    EXPECT_EQ(scrollerValue(gridOf(9, 1)), 1.0f);
    EXPECT_EQ(scrollerKnob(gridOf(12)), 0.5f);
}

TEST(ChoiceScroller, IsFullWhereEverythingFits)
{
    EXPECT_EQ(scrollerValue(gridOf(6)), 0.0f);
    EXPECT_EQ(scrollerKnob(gridOf(6)), 1.0f);
}

TEST(ChoiceScroller, LeadsToTheNearestLine)
{
    const ChoiceGrid grid = gridOf(12);
    EXPECT_EQ(firstLineAtScrollerValue(grid, 0), 0);
    EXPECT_EQ(firstLineAtScrollerValue(grid, 0.2f), 0);
    EXPECT_EQ(firstLineAtScrollerValue(grid, 0.3f), 1);
    EXPECT_EQ(firstLineAtScrollerValue(grid, 1), 2);
    EXPECT_EQ(firstLineAtScrollerValue(grid, -1), 0);
    EXPECT_EQ(firstLineAtScrollerValue(grid, kInfinity), 2);
    EXPECT_EQ(firstLineAtScrollerValue(grid, std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST(ChoiceGrid, ShowsEveryChoiceOfAnyNumberWithoutOverlap)
{
    for (std::int32_t count = 1; count <= 200; ++count) {
        for (std::int32_t wanted = 0; wanted < count; ++wanted) {
            const std::int32_t line = firstLineShowing(gridOf(count), wanted);
            const ChoiceGrid grid = gridOf(count, line, {90, 250, 40});
            const ChoiceFrame frame = frameOfChoice(grid, wanted);
            ASSERT_TRUE(isChoiceVisible(grid, wanted)) << count << " " << wanted;
            ASSERT_TRUE(isInside(frame, kWidth, kHeight)) << count << " " << wanted;
            ASSERT_EQ(choiceAt(grid, frame.x + frame.width / 2, frame.y + 10), wanted);
            for (std::int32_t other = 0; other < count; ++other) {
                if (other != wanted)
                    ASSERT_FALSE(overlap(frame, frameOfChoice(grid, other)));
            }
            ASSERT_FALSE(overlap(frame, frameOfScroller(grid, kWidth, kHeight)));
        }
    }
}

TEST(ChoiceGrid, ReachesEveryChoiceByArrowKeys)
{
    for (std::int32_t count = 1; count <= 60; ++count) {
        const ChoiceGrid grid = gridOf(count);
        for (std::int32_t index = 0; index + 1 < count; ++index) {
            EXPECT_EQ(choiceAfterMove(grid, index, ChoiceMove::Right), index + 1);
            EXPECT_EQ(choiceAfterMove(grid, index + 1, ChoiceMove::Left), index);
        }
        std::int32_t index = 0;
        for (std::int32_t press = 0; press < count; ++press)
            index = choiceAfterMove(grid, index, ChoiceMove::Down);
        EXPECT_EQ(index / grid.columns, grid.lines - 1);
    }
}

TEST(ChoiceGrid, HoldsTheLargestNumberOfChoices)
{
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    const ChoiceGrid grid = gridOf(kMost, kMost);
    EXPECT_TRUE(isChoiceVisible(grid, kMost - 1));
    // The last choice stands alone in its line.
    EXPECT_EQ(choiceAfterMove(grid, kMost - 4, ChoiceMove::Down), kMost - 1);
    EXPECT_EQ(choiceAfterMove(grid, kMost - 2, ChoiceMove::Down), kMost - 1);
    EXPECT_EQ(choiceAfterMove(grid, kMost - 1, ChoiceMove::Down), kMost - 1);
    EXPECT_EQ(choiceAt(grid, 10, 10), kMost - 4);
}
