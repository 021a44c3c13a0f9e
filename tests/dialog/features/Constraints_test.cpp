#include "dialog/features/Constraints.hpp"

#include "tests/dialog/features/PPD.hpp"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace dialog {
namespace {

using Settings = std::vector<Setting>;

std::vector<Settings> conflictsOf(const PPDFile& ppd)
{
    const Constraints constraints = constraintsOf(ppd);
    std::vector<Settings> result;
    for (const Conflict& conflict : conflictsIn(constraints, marksOf(ppd, constraints))) {
        result.push_back(conflict.settings);
    }
    return result;
}

const std::string kOptions = optionText("Cut", {"Each", "Last", "None"}) +
                             optionText("Half", {"False", "True"}, "Boolean") +
                             optionText("Dark", {"Off", "On"}) + optionText("Fine", {"No", "Yes"});

TEST(Conflicts, AreTwoChoicesThatAreBothMadeInTheConstraintsOrder)
{
    PPDFile ppd = openPPD(kOptions + "*UIConstraints: *Half True *Cut Last\n"
                                     "*UIConstraints: *Fine Yes *Dark On\n");
    EXPECT_TRUE(conflictsOf(ppd).empty());
    ppd.mark("Half", "True");
    EXPECT_TRUE(conflictsOf(ppd).empty());
    ppd.mark("Cut", "Last");
    EXPECT_EQ(conflictsOf(ppd), (std::vector<Settings>{{{"Half", "True"}, {"Cut", "Last"}}}));
    ppd.mark("Dark", "On");
    ppd.mark("Fine", "Yes");
    EXPECT_EQ(conflictsOf(ppd), (std::vector<Settings>{{{"Half", "True"}, {"Cut", "Last"}},
                                                       {{"Fine", "Yes"}, {"Dark", "On"}}}));
}

TEST(Conflicts, SaidFromBothSidesComeOnce)
{
    PPDFile ppd = openPPD(kOptions + "*UIConstraints: *Half True *Cut Last\n"
                                     "*UIConstraints: *Cut Last *Half True\n"
                                     "*UIConstraints: *Half *Cut Last\n");
    ppd.mark("Half", "True");
    ppd.mark("Cut", "Last");
    EXPECT_EQ(conflictsOf(ppd), (std::vector<Settings>{{{"Half", "True"}, {"Cut", "Last"}}}));
}

TEST(Conflicts, WithAnOptionAsAWholeAreWithAnyChoiceButNoneOffAndFalse)
{
    PPDFile ppd = openPPD(kOptions + "*UIConstraints: *Fine Yes *Cut\n"
                                     "*UIConstraints: *Fine Yes *Half\n"
                                     "*UIConstraints: *Fine Yes *Dark\n");
    ppd.mark("Fine", "Yes");
    EXPECT_EQ(conflictsOf(ppd), (std::vector<Settings>{{{"Fine", "Yes"}, {"Cut", "Each"}}}));
    ppd.mark("Cut", "None");
    EXPECT_TRUE(conflictsOf(ppd).empty());
    ppd.mark("Half", "True");
    ppd.mark("Dark", "On");
    EXPECT_EQ(conflictsOf(ppd), (std::vector<Settings>{{{"Fine", "Yes"}, {"Half", "True"}},
                                                       {{"Fine", "Yes"}, {"Dark", "On"}}}));
}

TEST(Conflicts, OfThreeNeedAllThree)
{
    PPDFile ppd = openPPD(kOptions + "*cupsUIConstraints All: \"*Half True *Cut Last *Fine Yes\"\n"
                                     "*cupsUIResolver All: \"*Cut Each\"\n");
    const Constraints constraints = constraintsOf(ppd);
    ASSERT_EQ(constraints.size(), 1U);
    EXPECT_EQ(constraints[0].resolver, (Settings{{"Cut", "Each"}}));
    ppd.mark("Half", "True");
    ppd.mark("Cut", "Last");
    EXPECT_TRUE(conflictsOf(ppd).empty());
    ppd.mark("Fine", "Yes");
    EXPECT_EQ(conflictsOf(ppd),
              (std::vector<Settings>{{{"Half", "True"}, {"Cut", "Last"}, {"Fine", "Yes"}}}));
}

TEST(Conflicts, WithOneOfSeveralMarksAreFoundAmongThem)
{
    PPDFile ppd = openPPD(kOptions + optionText("Marks", {"Cut", "Fold", "Frame"}, "PickMany") +
                          "*UIConstraints: *Marks Frame *Fine Yes\n");
    ppd.mark("Fine", "Yes");
    EXPECT_TRUE(conflictsOf(ppd).empty());
    ppd.mark("Marks", "Cut,Frame");
    EXPECT_EQ(conflictsOf(ppd), (std::vector<Settings>{{{"Marks", "Frame"}, {"Fine", "Yes"}}}));
}

TEST(Conflicts, OfTheRegionAreThoseOfTheTape)
{
    PPDFile ppd = openPPD(kOptions + "*UIConstraints: *PageRegion T6 *Fine Yes\n"
                                     "*UIConstraints: *PageSize T6 *Fine Yes\n");
    ppd.mark("Fine", "Yes");
    ppd.mark("PageSize", "T6");
    EXPECT_EQ(conflictsOf(ppd), (std::vector<Settings>{{{"PageSize", "T6"}, {"Fine", "Yes"}}}));
}

TEST(ConstraintsOf, KeepThePpdsSpellingAndLeaveOutWhatItDoesNotHave)
{
    const Constraints constraints = constraintsOf(
        openPPD(kOptions + "*UIConstraints: *half true *cut LAST\n"
                           "*UIConstraints: *Half True *Other X\n"
                           "*UIConstraints: *Half True *Cut Other\n"
                           "*NonUIConstraints: *Fine Yes *Dark On\n"
                           "*cupsUIConstraints Lone: \"*Half True\"\n"
                           "*cupsUIConstraints Empty: \"\"\n"
                           "*cupsUIConstraints Odd: \"True *Half True Last *Dark On\"\n"
                           "*cupsUIResolver Odd: \"*Other X\"\n"));
    ASSERT_EQ(constraints.size(), 3U);
    EXPECT_EQ(constraints[0].terms, (Settings{{"Half", "True"}, {"Cut", "Last"}}));
    EXPECT_EQ(constraints[1].terms, (Settings{{"Fine", "Yes"}, {"Dark", "On"}}));
    EXPECT_EQ(constraints[2].terms, (Settings{{"Half", "True"}, {"Dark", "On"}}));
    EXPECT_TRUE(constraints[2].resolver.empty());
    EXPECT_TRUE(constraintsOf(PPDFile()).empty());
}

// The print library would have such a choice conflict for ever.
TEST(ConstraintsOf, LeaveOutAChoiceThatIsSetAgainstItself)
{
    const Constraints constraints = constraintsOf(
        openPPD(kOptions + "*UIConstraints: *Half True *Half True\n"
                           "*UIConstraints: *Half True *half true\n"
                           "*UIConstraints: *Half *Half True\n"
                           "*UIConstraints: *Half *Half\n"
                           "*cupsUIConstraints Thrice: \"*Half True *Half *Half True\"\n"
                           "*UIConstraints: *Cut Each *Cut Last\n"
                           "*cupsUIConstraints Other: \"*Half True *Half True *Fine Yes\"\n"));
    ASSERT_EQ(constraints.size(), 2U);
    EXPECT_EQ(constraints[0].terms, (Settings{{"Cut", "Each"}, {"Cut", "Last"}}));
    EXPECT_EQ(constraints[1].terms,
              (Settings{{"Half", "True"}, {"Half", "True"}, {"Fine", "Yes"}}));
}

// The print library's own word: the options that are part of a conflict.
std::set<std::string> libraryConflicts(ppd_file_t* ppd)
{
    std::set<std::string> result;
    if (ppdConflicts(ppd) > 0) {
        for (const ppd_option_t* option = ppdFirstOption(ppd); option != nullptr;
             option = ppdNextOption(ppd)) {
            if (option->conflicted != 0) {
                result.insert(option->keyword);
            }
        }
    }
    return result;
}

TEST(ConflictsSweep, AgreesWithThePrintLibraryWhateverIsConstrainedAndMarked)
{
    std::mt19937 random(20);
    const auto pick = [&](std::size_t count) { return random() % count; };
    const std::vector<std::pair<std::string, std::vector<std::string>>> options = {
        {"Cut", {"Each", "Last", "None"}},
        {"Half", {"False", "True"}},
        {"Dark", {"Off", "On"}},
        {"Fine", {"No", "Yes"}},
        {"Slow", {"S1", "S2", "S3"}}};
    std::string body;
    for (const auto& [keyword, choices] : options) {
        body += optionText(keyword, choices);
    }
    std::size_t found = 0;
    for (int round = 0; round < 400; ++round) {
        std::string text = body;
        for (std::size_t i = 1 + pick(5); i > 0; --i) {
            std::set<std::size_t> chosen;
            const bool isPair = pick(2) == 0;
            const std::size_t terms = isPair ? 2 : 2 + pick(2);
            while (chosen.size() < terms) {
                chosen.insert(pick(options.size()));
            }
            std::string record;
            for (const std::size_t option : chosen) {
                const auto& [keyword, choices] = options[option];
                record += (record.empty() ? "*" : " *") + keyword;
                if (pick(4) != 0) {
                    record += " " + choices[pick(choices.size())];
                }
            }
            text += isPair ? "*UIConstraints: " + record + "\n"
                           : "*cupsUIConstraints C" + std::to_string(i) + ": \"" + record + "\"\n";
        }
        PPDFile ppd = openPPD(text);
        ASSERT_NE(ppd.record(), nullptr);
        for (const auto& [keyword, choices] : options) {
            ASSERT_TRUE(ppd.mark(keyword, choices[pick(choices.size())]));
        }
        std::set<std::string> inConflict;
        for (const Settings& settings : conflictsOf(ppd)) {
            ++found;
            for (const Setting& setting : settings) {
                inConflict.insert(setting.keyword);
            }
        }
        EXPECT_EQ(inConflict, libraryConflicts(ppd.record())) << text;
    }
    EXPECT_GT(found, 200U);
}

} // namespace
} // namespace dialog
