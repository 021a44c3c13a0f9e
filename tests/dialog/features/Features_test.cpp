#include "dialog/features/Features.hpp"

#include "tests/dialog/features/PPD.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

std::vector<std::string> keywords(const FeatureGroup& group)
{
    std::vector<std::string> result;
    for (const Feature& feature : group.features) {
        result.push_back(feature.keyword);
    }
    return result;
}

using Words = std::vector<std::string>;

TEST(FeaturesOf, ReadsGroupsTitlesAndChoicesInTheOrderOfThePpd)
{
    const Features features = featuresOf(
        openPPD("*OpenGroup: Cutting/Blades\n" + optionText("Cut", {"Each", "Last"}) +
                optionText("Depth", {"Full", "Half", "None"}) + "*CloseGroup: Cutting\n" +
                "*OpenGroup: Look/Looks\n" + optionText("Mirror", {"False", "True"}, "Boolean") +
                "*CloseGroup: Look\n"));
    ASSERT_EQ(features.size(), 3U);
    EXPECT_EQ(keywords(features[0]), (Words{"PageSize", "PageRegion"}));
    EXPECT_EQ(features[1].title, "Blades");
    EXPECT_EQ(keywords(features[1]), (Words{"Cut", "Depth"}));
    EXPECT_EQ(features[2].title, "Looks");
    const Feature& depth = features[1].features[1];
    EXPECT_EQ(depth.title, "The Depth");
    EXPECT_EQ(depth.standard, "Full");
    ASSERT_EQ(depth.choices.size(), 3U);
    EXPECT_EQ(depth.choices[1].keyword, "Half");
    EXPECT_EQ(depth.choices[1].title, "(Half)");
    EXPECT_EQ(choiceTitle(depth, "None"), "(None)");
    EXPECT_EQ(choiceTitle(depth, "Other"), "Other");
}

TEST(FeaturesOf, CallsAnOptionWithoutATitleByItsKeyword)
{
    const Features features = featuresOf(openPPD("*OpenUI *Plain: PickOne\n"
                                                 "*DefaultPlain: A\n"
                                                 "*Plain A: \"\"\n"
                                                 "*Plain B: \"\"\n"
                                                 "*CloseUI: *Plain\n"));
    const Feature* const plain = findFeature(features, "Plain");
    ASSERT_NE(plain, nullptr);
    EXPECT_EQ(plain->title, "Plain");
    EXPECT_EQ(plain->choices[1].title, "B");
}

TEST(FeaturesOf, HasNoneWithoutAPpd)
{
    EXPECT_TRUE(featuresOf(PPDFile()).empty());
}

TEST(FeaturesOf, LeavesOutTheCustomChoiceAndKeepsAnOrdinaryOneOfThatName)
{
    const Features features =
        featuresOf(openPPD(optionText("Shade", {"Light", "Dark"}) +
                           "*CustomShade True: \"\"\n*ParamCustomShade Share/Share: 1 int 0 100\n" +
                           optionText("Look", {"Plain", "Custom"})));
    EXPECT_EQ(findFeature(features, "Shade")->choices.size(), 2U);
    EXPECT_EQ(findFeature(features, "Look")->choices.size(), 2U);
}

struct SwitchCase
{
    const char* yes;
    const char* no;
    FeatureKind kind;
};

class TitlesOfABoolean : public testing::TestWithParam<SwitchCase>
{
};

TEST_P(TitlesOfABoolean, DecideWhetherItIsASwitch)
{
    const std::string yes = GetParam().yes;
    const std::string no = GetParam().no;
    const Features features =
        featuresOf(openPPD("*OpenUI *Mirror/Mirror: Boolean\n*DefaultMirror: False\n*Mirror True/" +
                           yes + ": \"\"\n*Mirror False/" + no + ": \"\"\n*CloseUI: *Mirror\n"));
    EXPECT_EQ(findFeature(features, "Mirror")->kind, GetParam().kind) << yes << " " << no;
}

INSTANTIATE_TEST_SUITE_P(Booleans, TitlesOfABoolean,
                         testing::Values(SwitchCase{"Yes", "No", FeatureKind::Switch},
                                         SwitchCase{"On", "Off", FeatureKind::Switch},
                                         SwitchCase{"True", "False", FeatureKind::Switch},
                                         SwitchCase{"Full length", "No", FeatureKind::PickOne},
                                         SwitchCase{"Yes", "Only a little", FeatureKind::PickOne}));

TEST(FeatureKind, OfABooleanWithOtherChoicesIsPickOne)
{
    const Features features = featuresOf(openPPD(optionText("Odd", {"On", "Off"}, "Boolean") +
                                                 optionText("Lone", {"True"}, "Boolean") +
                                                 optionText("Set", {"A", "B"}, "PickMany")));
    EXPECT_EQ(findFeature(features, "Odd")->kind, FeatureKind::PickOne);
    EXPECT_EQ(findFeature(features, "Lone")->kind, FeatureKind::PickOne);
    EXPECT_EQ(findFeature(features, "Set")->kind, FeatureKind::PickMany);
}

TEST(OfferedFeatures, LeaveOutTapeLengthsEquipmentAndWhatLeavesNoChoice)
{
    const PPDFile ppd = openPPD(
        optionText("VnTapeLength", {"100.0", "50.0"}) + optionText("VnMargin", {"3.0", "4.0"}) +
        optionText("Resolution", {"R1", "R2"}) + optionText("Lone", {"A"}) +
        optionText("Marks", {"A"}, "PickMany") + "*OpenGroup: Nothing/Nothing\n" +
        optionText("Alone", {"A"}) + "*CloseGroup: Nothing\n" +
        "*OpenGroup: InstallableOptions/Equipment\n" +
        optionText("Cutter", {"True", "False"}, "Boolean") + "*CloseGroup: InstallableOptions\n");
    const Features features = featuresOf(ppd);
    EXPECT_TRUE(findFeature(features, "Cutter")->fitted);
    EXPECT_FALSE(findFeature(features, "Resolution")->fitted);
    const Features offered = offeredFeatures(ppd);
    ASSERT_EQ(offered.size(), 1U);
    EXPECT_EQ(keywords(offered[0]), (Words{"Resolution", "Marks"}));
}

TEST(MarkOfSeveral, IsExactlyWhatIsListedOrNothingAtAll)
{
    PPDFile ppd = openPPD(optionText("Marks", {"Cut", "Fold", "Frame"}, "PickMany"));
    EXPECT_EQ(ppd.markedChoices("Marks"), (Words{"Cut"}));
    EXPECT_TRUE(ppd.mark("Marks", "Frame,Fold"));
    EXPECT_EQ(ppd.markedChoices("Marks"), (Words{"Fold", "Frame"}));
    EXPECT_FALSE(ppd.mark("Marks", "Cut,Other"));
    EXPECT_FALSE(ppd.mark("Marks", "Cut,"));
    EXPECT_FALSE(ppd.mark("Marks", ""));
    EXPECT_EQ(ppd.markedChoices("Marks"), (Words{"Fold", "Frame"}));
    EXPECT_TRUE(ppd.mark("Marks", "None"));
    EXPECT_EQ(ppd.markedChoices("Marks"), Words());
}

TEST(MarkOfSeveral, IsForThePrintLibraryTheFirstOfThem)
{
    PPDFile ppd = openPPD(optionText("Marks", {"Cut", "Fold", "Frame"}, "PickMany"));
    for (const auto& [value, first] :
         {std::pair("Frame", "Frame"), {"Frame,Fold", "Fold"}, {"Cut,Frame", "Cut"}}) {
        EXPECT_TRUE(ppd.mark("Marks", value));
        EXPECT_EQ(ppd.marked("Marks"), first);
    }
    EXPECT_EQ(ppd.markedChoices("Marks"), (Words{"Cut", "Frame"}));
}

TEST(MarkOfSeveral, TakesAListedNoneAsTheChoiceItIs)
{
    PPDFile ppd = openPPD(optionText("Marks", {"None", "Fold"}, "PickMany"));
    EXPECT_TRUE(ppd.mark("Marks", "Fold"));
    EXPECT_EQ(ppd.markedChoices("Marks"), (Words{"Fold"}));
    EXPECT_TRUE(ppd.mark("Marks", "None"));
    EXPECT_EQ(ppd.markedChoices("Marks"), (Words{"None"}));
}

TEST(MarkedChoices, AreTheOneMarkOfAnOrdinaryOptionAndNoneOfAnUnknownOne)
{
    PPDFile ppd = openPPD(optionText("Cut", {"Each", "Last"}));
    EXPECT_TRUE(ppd.mark("Cut", "Last"));
    EXPECT_EQ(ppd.markedChoices("Cut"), (Words{"Last"}));
    EXPECT_EQ(ppd.markedChoices("Other"), Words());
    EXPECT_EQ(PPDFile().markedChoices("Cut"), Words());
}

} // namespace
} // namespace dialog
