#include "dialog/features/FeatureValue.hpp"

#include "dialog/Panes.hpp"
#include "dialog/features/FeatureSummary.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

const Feature kCut{"Cut",  "Cut", FeatureKind::PickOne, {{"Each", "Each label"}, {"Last", "Last"}},
                   "Each", false};
const Feature kMirror{
    "Mirror", "Mirror image", FeatureKind::Switch, {{"True", "Yes"}, {"False", "No"}},
    "False",  false};
const Feature kMarks{"Marks",
                     "Marks",
                     FeatureKind::PickMany,
                     {{"Line", "A line"}, {"Fold", "A fold"}, {"Frame", "A frame"}},
                     "Line",
                     false};

using Chosen = std::vector<bool>;

TEST(FeatureValue, OfSeveralChoicesHasCommasBetweenThem)
{
    EXPECT_EQ(valueOf(kMarks, {true, false, true}), "Line,Frame");
    EXPECT_EQ(valueOf(kMarks, {false, false, false}), "None");
    EXPECT_EQ(valueOf(kCut, {false, true}), "Last");
    EXPECT_EQ(joinedChoices({"a", "b"}), "a,b");
    EXPECT_EQ(joinedChoices({}), "None");
}

TEST(ChosenOf, FindsTheMarkedOnesWhateverTheirOrder)
{
    EXPECT_EQ(chosenOf(kMarks, {"Frame", "Line"}), (Chosen{true, false, true}));
    EXPECT_EQ(chosenOf(kCut, {"Other"}), (Chosen{false, false}));
}

TEST(Switched, IsTrueOrFalseInWhateverOrderThePpdHasThem)
{
    EXPECT_EQ(valueOf(kMirror, switched(kMirror, true)), "True");
    EXPECT_EQ(valueOf(kMirror, switched(kMirror, false)), "False");
    EXPECT_TRUE(isSwitchedOn(kMirror, {true, false}));
    EXPECT_FALSE(isSwitchedOn(kMirror, {false, true}));
    EXPECT_FALSE(isSwitchedOn(kMirror, {false, false}));
}

TEST(ValueTitle, NamesEachChoiceAndKeepsWhatItDoesNotKnow)
{
    EXPECT_EQ(valueTitle(kCut, "Each"), "Each label");
    EXPECT_EQ(valueTitle(kCut, "Each,Last"), "Each,Last");
    EXPECT_EQ(valueTitle(kMarks, "Fold,Line"), "A fold, A line");
    EXPECT_EQ(valueTitle(kMarks, "None"), "None");
}

TEST(FeatureLines, AreTheChosenFeaturesThatThePanelDoesNotList)
{
    JobOptions job;
    job.set("Marks", "Line,Fold");
    job.set("Cut", "Last");
    job.set("Unknown", "X");
    std::vector<SummaryLine> lines = {{"Length", "62.5"}};
    appendFeatureLines(lines, {{"One", {kCut, kMirror}}, {"Two", {kMarks}}}, job,
                       [](const std::string& keyword) { return keyword == "Cut"; });
    EXPECT_EQ(lines, (std::vector<SummaryLine>{{"Length", "62.5"}, {"Marks", "A line, A fold"}}));
}

TEST(PanesFor, PutsTheFeaturesBetweenPanelAndSummary)
{
    EXPECT_EQ(panesFor("Panel", true), (std::vector<Pane>{{PaneKind::Panel, "Panel"},
                                                          {PaneKind::Features, "Printer Features"},
                                                          {PaneKind::Summary, "Summary"}}));
    EXPECT_EQ(panesFor("", false), (std::vector<Pane>{{PaneKind::Panel, "Page Settings"},
                                                      {PaneKind::Summary, "Summary"}}));
    EXPECT_EQ(findPane(panesFor("", true), PaneKind::Summary), 2U);
    EXPECT_EQ(findPane(panesFor("", false), PaneKind::Features), std::nullopt);
}

} // namespace
} // namespace dialog
