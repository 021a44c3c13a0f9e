#include "dialog/preview/LabelFollower.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dialog {
namespace {

using pagesettings::Unit;
using Texts = std::vector<std::string>;

const LengthRules kRules{Unit::Millimetres, false, {10, 1000, 1, 50}};
const TapeFacts kTape{{24, 100, 0, 1, 1}, false};
const TapeFacts kDieCut{{24, 40, 0, 1, 1}, true};

Label label(double length, double margin)
{
    return {24, length, margin, 1, 1};
}

TEST(LabelFollower, StartsWithWhatThePanelHasTold)
{
    LabelFollower follower;
    EXPECT_EQ(follower.follow(kTape, kRules, {80, 4}, {}), label(80, 4));
}

TEST(LabelFollower, FollowsFieldsThatItHasFoundOnce)
{
    LabelFollower follower;
    follower.follow(kTape, kRules, {100, 3}, Texts{"100.0", "3.0"});
    EXPECT_EQ(follower.follow(kTape, kRules, {100, 3}, Texts{"62", "3.0"}), label(62, 3));
    EXPECT_EQ(follower.follow(kTape, kRules, {100, 3}, Texts{"6", "3.0"}), label(62, 3));
    EXPECT_EQ(follower.follow(kTape, kRules, {100, 3}, Texts{"6", "4"}), label(62, 4));
}

TEST(LabelFollower, TakesWhatIsToldAnewWhereTheFieldIsOfNoUse)
{
    LabelFollower follower;
    follower.follow(kTape, kRules, {100, 3}, Texts{"100.0", "3.0"});
    EXPECT_EQ(follower.follow(kTape, kRules, {55, 3}, Texts{"", "3.0"}), label(55, 3));
}

TEST(LabelFollower, LooksForTheFieldsUntilItHasThem)
{
    LabelFollower follower;
    follower.follow(kTape, kRules, {100, 3}, Texts{"", ""});
    follower.follow(kTape, kRules, {100, 3}, Texts{"100.0", "3.0"});
    EXPECT_EQ(follower.follow(kTape, kRules, {100, 3}, Texts{"62", "3.0"}), label(62, 3));
}

TEST(LabelFollower, LeavesADieCutLabelItsLength)
{
    LabelFollower follower;
    follower.follow(kTape, kRules, {100, 3}, Texts{"100.0", "3.0"});
    EXPECT_EQ(follower.follow(kDieCut, kRules, {55, 3}, Texts{"55.0", "3.0"}), label(40, 3));
}

TEST(LabelFollower, ShowsThePapersOwnLengthWhereThePanelTellsNone)
{
    LabelFollower follower;
    EXPECT_EQ(follower.follow(kTape, {}, {0, 3}, Texts{"0.0", "3.0"}), label(100, 3));
}

TEST(LabelFollower, HasNoLabelWhereTheMarginsMeet)
{
    LabelFollower follower;
    EXPECT_FALSE(follower.follow(kDieCut, kRules, {40, 21}, {}));
    EXPECT_TRUE(follower.follow(kDieCut, kRules, {40, 20}, {}));
}

TEST(LabelFollower, ForgetsWhichFieldsThePanelHad)
{
    LabelFollower follower;
    follower.follow(kTape, kRules, {100, 3}, Texts{"100.0", "3.0"});
    follower.forget();
    EXPECT_EQ(follower.follow(kTape, kRules, {30, 2}, Texts{"2", "30"}), label(30, 2));
    EXPECT_EQ(follower.follow(kTape, kRules, {30, 2}, Texts{"2", "35"}), label(35, 2));
}

} // namespace
} // namespace dialog
