#include "dialog/keyboard/SpokenName.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

TEST(WithoutColon, TakesTheColonAndTheSpacesAwayInEveryScript)
{
    EXPECT_EQ(withoutColon("Printer:"), "Printer");
    EXPECT_EQ(withoutColon("Tape Length : "), "Tape Length");
    EXPECT_EQ(withoutColon("Marge\xC2\xA0:"), "Marge");
    EXPECT_EQ(withoutColon("\xE4\xBD\x99\xE7\x99\xBD\xEF\xBC\x9A"), "\xE4\xBD\x99\xE7\x99\xBD");
    EXPECT_EQ(withoutColon("Ratio 1:2"), "Ratio 1:2");
    EXPECT_EQ(withoutColon("::"), ":");
    EXPECT_EQ(withoutColon(" : "), "");
    EXPECT_EQ(withoutColon(""), "");
}

TEST(CaptionBeside, IsTheNearestWithAColonAtTheLeft)
{
    const std::vector<Caption> row = {{{0, 100, 50, 17}, "Far:"},
                                      {{60, 100, 60, 17}, "Length : "},
                                      {{200, 100, 20, 17}, "mm"},
                                      {{400, 100, 60, 17}, "Right:"}};
    EXPECT_EQ(captionBeside({130, 97, 60, 24}, row), "Length");
    EXPECT_EQ(captionBeside({230, 97, 100, 24}, row), "Length"); // the slider behind the unit
    EXPECT_EQ(captionBeside({52, 97, 5, 24}, row), "Far");
    EXPECT_EQ(captionBeside({0, 97, 5, 24}, row), "");
}

TEST(CaptionBeside, IsInTheControlsFirstRow)
{
    const std::vector<Caption> captions = {{{0, 100, 50, 17}, "Upper:"},
                                           {{0, 60, 50, 17}, "Lower:"}};
    // A group of choices from 58 to 121.
    EXPECT_EQ(captionBeside({60, 58, 100, 63}, captions), "Upper");
    EXPECT_EQ(captionBeside({60, 57, 100, 24}, captions), "Lower");
    EXPECT_EQ(captionBeside({60, 20, 100, 24}, captions), "");
}

} // namespace
} // namespace dialog
