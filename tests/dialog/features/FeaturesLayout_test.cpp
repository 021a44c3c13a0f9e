#include "dialog/features/FeaturesLayout.hpp"

#include "dialog/features/ConflictBarLayout.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

const std::vector<FeatureRow> kRows = {
    {FeatureRowKind::Heading},
    {FeatureRowKind::PickOne, 80},
    {FeatureRowKind::Switch},
    {FeatureRowKind::Heading},
    {FeatureRowKind::PickOne, 300},
    {FeatureRowKind::PickMany, 300, 1},
    {FeatureRowKind::PickMany, 50, 4},
    {FeatureRowKind::Switch},
    {FeatureRowKind::PickMany, 5000, 0},
};

bool overlap(const Frame& a, const Frame& b)
{
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

TEST(FeaturesLayout, LeavesNothingOverlappingOrOutsideTheRows)
{
    for (const double width : {300.0, 520.0, 560.0, 900.0}) {
        const FeaturesLayout layout = layOutFeatures(kRows, width);
        ASSERT_EQ(layout.rows.size(), kRows.size());
        std::vector<Frame> frames;
        for (const FeatureRowPlace& row : layout.rows) {
            frames.insert(frames.end(), row.controls.begin(), row.controls.end());
            for (const Frame& frame : {row.line, row.label}) {
                if (frame.height > 0) {
                    frames.push_back(frame);
                }
            }
        }
        for (std::size_t i = 0; i < frames.size(); ++i) {
            EXPECT_GE(frames[i].x, 20);
            EXPECT_GE(frames[i].y, 12);
            EXPECT_LE(frames[i].x + frames[i].width, width - 20);
            EXPECT_LE(frames[i].y + frames[i].height, layout.height - 12);
            for (std::size_t j = i + 1; j < frames.size(); ++j) {
                EXPECT_FALSE(overlap(frames[i], frames[j])) << i << " and " << j;
            }
        }
    }
}

TEST(FeaturesLayout, KeepsLabelsAndControlsInTheColumnsOfPageSettings)
{
    const FeaturesLayout layout = layOutFeatures(kRows, 560);
    EXPECT_EQ(layout.rows[1].label.x + layout.rows[1].label.width, 180);
    for (const std::size_t row : {1, 2, 4, 5, 6}) {
        for (const Frame& control : layout.rows[row].controls) {
            EXPECT_EQ(control.x, 190) << row;
        }
    }
    EXPECT_EQ(layout.rows[1].controls[0].width, 280);
}

TEST(FeaturesLayout, GivesALongTitleTwoLines)
{
    const FeaturesLayout layout = layOutFeatures(kRows, 560);
    EXPECT_EQ(layout.rows[1].label.height, 16);
    EXPECT_EQ(layout.rows[4].label.height, 32);
    EXPECT_EQ(layout.rows[2].label.height, 0);
    EXPECT_EQ(layout.rows[6].controls.size(), 4U);
}

TEST(FeaturesLayout, DrawsALineAboveEveryHeadingButTheFirst)
{
    const FeaturesLayout layout = layOutFeatures(kRows, 560);
    EXPECT_EQ(layout.rows[0].line, Frame());
    EXPECT_EQ(layout.rows[3].line.width, 520);
    EXPECT_EQ(layout.rows[3].line.height, 5); // with less the line is not drawn at every scale
    EXPECT_GT(layout.rows[3].line.y, layout.rows[2].controls[0].y + 20);
    EXPECT_LT(layout.rows[3].line.y, layout.rows[3].label.y);
}

TEST(FeaturesLayout, OfNoRowsIsOnlyTheEdges)
{
    EXPECT_EQ(layOutFeatures({}, 560).height, 24);
}

TEST(ConflictBarLayout, GivesTheButtonWhatItsTitleNeedsAndTheSentenceTheRest)
{
    const ConflictBarLayout layout = layOutConflictBar({584, 34}, 172);
    EXPECT_EQ(layout.remedy, (Frame{384, 4, 200, 26}));
    EXPECT_EQ(layout.sentence, (Frame{0, 0, 374, 34}));
}

TEST(ConflictBarLayout, LeavesTwoFifthsToTheSentenceHoweverLongTheTitle)
{
    const ConflictBarLayout layout = layOutConflictBar({500, 34}, 5000);
    EXPECT_EQ(layout.remedy.width, 300);
    EXPECT_EQ(layout.sentence.width, 190);
}

TEST(ConflictBarLayout, GivesTheSentenceAllWithoutAButton)
{
    EXPECT_EQ(layOutConflictBar({500, 34}, 0).sentence, (Frame{0, 0, 500, 34}));
    EXPECT_EQ(layOutConflictBar({500, 34}, 0).remedy, Frame());
}

TEST(SentenceInTheMiddle, HasAsMuchAboveAsBelow)
{
    EXPECT_EQ(sentenceInTheMiddle({10, 0, 300, 34}, 16), (Frame{10, 9, 300, 16}));
    EXPECT_EQ(sentenceInTheMiddle({10, 0, 300, 34}, 50), (Frame{10, 0, 300, 34}));
}

TEST(ConflictBarHeight, IsTwoToFourLines)
{
    EXPECT_EQ(conflictBarHeight(15), 34);
    EXPECT_EQ(conflictBarHeight(48), 48);
    EXPECT_EQ(conflictBarHeight(400), 66);
}

} // namespace
} // namespace dialog
