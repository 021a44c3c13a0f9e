#include "dialog/Layout.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace dialog {
namespace {

bool overlap(const Frame& a, const Frame& b)
{
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

std::vector<Frame> outer(const WindowLayout& layout)
{
    return {layout.printerLabel,  layout.printerPopUp, layout.tapeLabel,   layout.tapePopUp,
            layout.presetsLabel,  layout.presetsPopUp, layout.copiesLabel, layout.copiesField,
            layout.copiesStepper, layout.chooser,      layout.box,         layout.preview,
            layout.message,       layout.copyCommand,  layout.cancel,      layout.print};
}

class EveryPaneSize : public testing::TestWithParam<Size>
{
};

TEST_P(EveryPaneSize, LeavesNothingOverlappingOrOutsideTheWindow)
{
    const WindowLayout layout = layOut(GetParam());
    const std::vector<Frame> frames = outer(layout);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        EXPECT_GE(frames[i].x, 20) << i;
        EXPECT_GE(frames[i].y, 20) << i;
        EXPECT_LE(frames[i].x + frames[i].width, layout.content.width - 20) << i;
        EXPECT_LE(frames[i].y + frames[i].height, layout.content.height - 20) << i;
        for (std::size_t j = i + 1; j < frames.size(); ++j) {
            EXPECT_FALSE(overlap(frames[i], frames[j])) << i << " and " << j;
        }
    }
}

TEST_P(EveryPaneSize, KeepsThePaneAtItsSizeInsideTheBox)
{
    const WindowLayout layout = layOut(GetParam());
    EXPECT_EQ(layout.pane.width, GetParam().width);
    EXPECT_EQ(layout.pane.height, GetParam().height);
    EXPECT_GE(layout.pane.x, layout.box.x);
    EXPECT_GE(layout.pane.y, layout.box.y);
    EXPECT_LE(layout.pane.x + layout.pane.width, layout.box.x + layout.box.width);
    // Twelve points below the box's upper edge, however small the pane.
    EXPECT_EQ(layout.pane.y + layout.pane.height, layout.box.y + layout.box.height - 12);
}

TEST_P(EveryPaneSize, PutsTheLabelBesideTheBoxAsHighAsIt)
{
    const WindowLayout layout = layOut(GetParam());
    EXPECT_EQ(layout.preview.y, layout.box.y);
    EXPECT_EQ(layout.preview.height, layout.box.height);
    EXPECT_EQ(layout.preview.width, 300);
    EXPECT_EQ(layout.preview.x + layout.preview.width, layout.content.width - 20);
    // Over the middle of the box, whose pane it chooses.
    EXPECT_EQ(layout.chooser.x + layout.chooser.width / 2, layout.box.x + layout.box.width / 2);
}

INSTANTIATE_TEST_SUITE_P(Panes, EveryPaneSize,
                         testing::Values(Size{520, 330}, Size{520, 120}, Size{0, 0}, Size{900, 700},
                                         Size{300, 50}));

TEST(WindowLayout, GrowsWithThePaneAndNeverBelowItsOwnRows)
{
    EXPECT_EQ(layOut({600, 400}).content.width - layOut({520, 400}).content.width, 80);
    EXPECT_EQ(layOut({520, 400}).content.height - layOut({520, 330}).content.height, 70);
    EXPECT_EQ(layOut({10, 10}).content.width, layOut({0, 0}).content.width);
}

TEST(WindowLayout, PutsPrintAtTheRightOfCancelOnOneLine)
{
    const WindowLayout layout = layOut({520, 330});
    EXPECT_EQ(layout.print.y, layout.cancel.y);
    EXPECT_EQ(layout.print.y, layout.copyCommand.y);
    EXPECT_EQ(layout.copyCommand.x, layout.message.x);
    EXPECT_GT(layout.print.x, layout.cancel.x + layout.cancel.width);
    EXPECT_EQ(layout.printerPopUp.x, layout.tapePopUp.x);
    EXPECT_EQ(layout.printerPopUp.x, layout.presetsPopUp.x);
    EXPECT_GT(layout.tapePopUp.y, layout.presetsPopUp.y);
    EXPECT_GT(layout.presetsPopUp.y, layout.copiesField.y);
    EXPECT_EQ(layout.printerPopUp.x, layout.copiesField.x);
}

TEST(WordsInTheWindow, GetTheRoomTheyNeedAndNoLess)
{
    // Three points are free at both sides of a label's text and ten at both sides of a button's.
    const WindowLayout layout = layOut({520, 330}, {130.5, 101.2, 180.9});
    EXPECT_EQ(layout.printerLabel.width, 137);
    EXPECT_EQ(layout.copiesLabel.width, 137);
    EXPECT_EQ(layout.printerPopUp.x, 20 + 137 + 8);
    EXPECT_EQ(layout.copiesField.x, 20 + 137 + 8);
    EXPECT_EQ(layout.print.width, 122);
    EXPECT_EQ(layout.cancel.width, 122);
    EXPECT_EQ(layout.print.x - layout.cancel.x, 122 + 8);
    EXPECT_EQ(layout.copyCommand.width, 201);
    EXPECT_EQ(layout.print.x + 122, layout.content.width - 20);
}

TEST(WordsInTheWindow, LeaveEverythingWhereItIsWhileTheyAreShort)
{
    const WindowLayout longest = layOut({520, 330}, {114, 70, 170});
    EXPECT_EQ(outer(longest), outer(layOut({520, 330})));
    EXPECT_NE(outer(layOut({520, 330}, {114.1, 70})), outer(longest));
    EXPECT_NE(outer(layOut({520, 330}, {114, 70.1})), outer(longest));
    EXPECT_NE(outer(layOut({520, 330}, {114, 70, 170.1})), outer(longest));
}

TEST(WordsInTheWindow, MakeAButtonAsWideAsItsRoomAtMost)
{
    EXPECT_EQ(buttonWidth(0, 186), 90);
    EXPECT_EQ(buttonWidth(70.5, 186), 91);
    EXPECT_EQ(buttonWidth(200, 186), 186);
}

TEST(WordsInTheWindow, PushNothingOutOfItHoweverLong)
{
    const WindowLayout layout = layOut({0, 0}, {5000, 5000, 5000});
    const std::vector<Frame> frames = outer(layout);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        EXPECT_GE(frames[i].x, 20) << i;
        EXPECT_LE(frames[i].x + frames[i].width, layout.content.width - 20) << i;
        for (std::size_t j = i + 1; j < frames.size(); ++j) {
            EXPECT_FALSE(overlap(frames[i], frames[j])) << i << " and " << j;
        }
    }
}

} // namespace
} // namespace dialog
