#include "dialog/features/Resolving.hpp"

#include "dialog/features/ConflictText.hpp"
#include "dialog/features/JobConflict.hpp"
#include "tests/dialog/features/PPD.hpp"

#include <gtest/gtest.h>

#include <random>

namespace dialog {
namespace {

using Changes = std::vector<Change>;

class Situation
{
  public:
    Situation(const std::string& body, const std::vector<Setting>& made) : ppd(openPPD(body))
    {
        for (const Setting& setting : made) {
            EXPECT_TRUE(ppd.mark(setting.keyword, setting.choice)) << setting.keyword;
        }
        features = featuresOf(ppd);
        constraints = constraintsOf(ppd);
        marks = marksOf(ppd, constraints);
    }

    std::vector<Conflict> conflicts() const { return conflictsIn(constraints, marks); }

    Changes changes(std::string_view last, std::size_t index = 0) const
    {
        return changesToResolve(conflicts().at(index), features, constraints, marks, last);
    }

    PPDFile ppd;
    Features features;
    Constraints constraints;
    Marks marks;
};

const std::string kOptions = optionText("A", {"A1", "A2", "A3"}) +
                             optionText("B", {"B1", "B2", "B3"}) +
                             optionText("C", {"C1", "C2", "C3"});

TEST(LastChosenIn, IsTheConflictsOptionThatWasChosenLast)
{
    const Conflict conflict{{{"A", "A2"}, {"B", "B2"}}, 0};
    ChoiceOrder order;
    EXPECT_EQ(lastChosenIn(conflict, order), "");
    noteChoice(order, "C");
    EXPECT_EQ(lastChosenIn(conflict, order), "");
    noteChoice(order, "A");
    noteChoice(order, "B");
    EXPECT_EQ(lastChosenIn(conflict, order), "B");
    noteChoice(order, "A");
    noteChoice(order, "C");
    EXPECT_EQ(lastChosenIn(conflict, order), "A");
    EXPECT_EQ(order, (ChoiceOrder{"B", "A", "C"}));
}

TEST(ChangesToResolve, SetTheOtherOptionBackToItsDefault)
{
    const Situation now(kOptions + "*UIConstraints: *A A2 *B B2\n", {{"A", "A2"}, {"B", "B2"}});
    EXPECT_EQ(now.changes("A"), (Changes{{"B", {"B1"}}}));
    EXPECT_EQ(now.changes("B"), (Changes{{"A", {"A1"}}}));
    EXPECT_EQ(now.changes(""), (Changes{{"A", {"A1"}}}));
}

TEST(ChangesToResolve, TakeThePpdsDefaultBeforeChoicesThatComeEarlier)
{
    const Situation now("*OpenUI *A/A: PickOne\n*DefaultA: A3\n*A A1: \"\"\n*A A2: \"\"\n"
                        "*A A3: \"\"\n*CloseUI: *A\n" +
                            optionText("B", {"B1", "B2"}) + "*UIConstraints: *A A2 *B B2\n",
                        {{"A", "A2"}, {"B", "B2"}});
    EXPECT_EQ(now.changes("B"), (Changes{{"A", {"A3"}}}));
}

TEST(ChangesToResolve, TakeAnotherChoiceWhereTheDefaultBringsAConflict)
{
    const Situation now(kOptions + "*UIConstraints: *A A2 *B B2\n*UIConstraints: *A A2 *B B1\n",
                        {{"A", "A2"}, {"B", "B2"}});
    EXPECT_EQ(now.changes("A"), (Changes{{"B", {"B3"}}}));
}

TEST(ChangesToResolve, EndAnotherConflictOfTheSameOptionAsWellIfTheyCan)
{
    const Situation now(kOptions + "*UIConstraints: *A A2 *B B2\n*UIConstraints: *B B1 *C C2\n"
                                   "*UIConstraints: *B B2 *C C2\n",
                        {{"C", "C2"}, {"A", "A2"}, {"B", "B2"}});
    EXPECT_EQ(now.changes("A"), (Changes{{"B", {"B3"}}}));
}

TEST(ChangesToResolve, LeaveAnotherConflictWhereNothingEndsBoth)
{
    const Situation now(kOptions + "*UIConstraints: *A A2 *B B2\n*UIConstraints: *B *C C2\n",
                        {{"C", "C2"}, {"A", "A2"}, {"B", "B2"}});
    EXPECT_EQ(now.changes("A", 0), (Changes{{"B", {"B1"}}}));
    // The second one is with any B, so only C can end it.
    EXPECT_EQ(now.changes("A", 1), (Changes{{"C", {"C1"}}}));
}

TEST(ChangesToResolve, AreTwoWhereOneBringsANewConflict)
{
    // A2 leaves B3 alone, and B3 does not go with C1, which is set.
    const Situation now(kOptions + "*UIConstraints: *A A2 *B B2\n*UIConstraints: *A A2 *B B1\n"
                                   "*UIConstraints: *B B3 *C C1\n",
                        {{"A", "A2"}, {"B", "B2"}});
    EXPECT_EQ(now.changes("A"), (Changes{{"B", {"B3"}}, {"C", {"C2"}}}));
}

TEST(ChangesToResolve, TakeBackTheLastChoiceWhereNothingElseHelps)
{
    const Situation now(kOptions + "*UIConstraints: *A A2 *B\n", {{"A", "A2"}, {"B", "B2"}});
    EXPECT_EQ(now.changes("A"), (Changes{{"A", {"A1"}}}));
}

TEST(ChangesToResolve, FollowThePpdsProposalUnlessItUndoesTheLastChoiceOrBringsAConflict)
{
    const std::string rules =
        "*cupsUIConstraints R: \"*A A2 *B B2\"\n*cupsUIResolver R: \"*B B3\"\n";
    const std::vector<Setting> made = {{"A", "A2"}, {"B", "B2"}};
    EXPECT_EQ(Situation(kOptions + rules, made).changes("A"), (Changes{{"B", {"B3"}}}));
    EXPECT_EQ(Situation(kOptions + rules, made).changes("B"), (Changes{{"A", {"A1"}}}));
    EXPECT_EQ(Situation(kOptions + rules + "*UIConstraints: *B B3 *C C1\n", made).changes("A"),
              (Changes{{"B", {"B1"}}}));
}

TEST(ChangesToResolve, NeverTouchTapeLengthsOrEquipment)
{
    const std::string equipment = "*OpenGroup: InstallableOptions/Equipment\n" +
                                  optionText("Unit", {"False", "True"}, "Boolean") +
                                  "*CloseGroup: InstallableOptions\n";
    const Situation tape(kOptions + "*UIConstraints: *PageSize T24 *A A2\n", {{"A", "A2"}});
    EXPECT_EQ(tape.changes("A"), (Changes{{"A", {"A1"}}}));
    const Situation unit(kOptions + equipment + "*UIConstraints: *Unit False *A A2\n",
                         {{"A", "A2"}});
    EXPECT_EQ(unit.changes("A"), (Changes{{"A", {"A1"}}}));
    const Situation length(kOptions + optionText("VnTapeLength", {"100.0", "50.0"}) +
                               "*UIConstraints: *VnTapeLength 100.0 *A A2\n",
                           {{"A", "A2"}});
    EXPECT_EQ(length.changes("A"), (Changes{{"A", {"A1"}}}));
    const Situation both(equipment + "*UIConstraints: *Unit False *PageSize T24\n", {});
    EXPECT_EQ(both.changes("PageSize"), Changes());
}

TEST(ChangesToResolve, TakeTheOneChoiceOutOfSeveral)
{
    const Situation now(kOptions + optionText("M", {"M1", "M2", "M3"}, "PickMany") +
                            "*UIConstraints: *M M2 *A A2\n",
                        {{"M", "M1,M2,M3"}, {"A", "A2"}});
    EXPECT_EQ(now.changes("A"), (Changes{{"M", {"M1", "M3"}}}));
}

TEST(ChangesToResolve, GiveUpInACircle)
{
    // Every choice of each option is in conflict with every other of the next.
    std::string circle;
    for (const auto& [one, other] : {std::pair("A", "B"), {"B", "C"}, {"C", "A"}}) {
        circle += std::string("*UIConstraints: *") + one + " *" + other + "\n";
    }
    const Situation now(kOptions + circle, {});
    EXPECT_EQ(now.conflicts().size(), 3U);
    EXPECT_EQ(now.changes("A"), Changes());
}

TEST(ChangesToResolve, GiveUpInTimeHoweverManyConstraintsThereAre)
{
    std::vector<std::string> choices;
    for (int i = 0; i < 1500; ++i) {
        choices.push_back("X" + std::to_string(i));
    }
    std::string body = optionText("A", choices) + optionText("B", choices);
    body += "*UIConstraints: *A *B\n";
    for (int i = 0; i < 1500; ++i) {
        body += "*UIConstraints: *A *B X" + std::to_string(i) + "\n";
    }
    EXPECT_EQ(Situation(body, {}).changes("A"), Changes());
}

// Whatever is proposed is carried out and looked at again.
TEST(ChangesSweep, EndTheConflictAndBringNoNewOne)
{
    std::mt19937 random(7);
    const auto pick = [&](std::size_t count) { return random() % count; };
    const std::vector<std::string> options = {"A", "B", "C"};
    std::size_t proposed = 0;
    for (int round = 0; round < 400; ++round) {
        std::string body = kOptions;
        for (std::size_t i = 2 + pick(6); i > 0; --i) {
            const std::size_t one = pick(3);
            const std::size_t other = (one + 1 + pick(2)) % 3;
            const auto term = [&](std::size_t option) {
                return "*" + options[option] + " " + options[option] + std::to_string(1 + pick(3));
            };
            body += "*UIConstraints: " + term(one) + " " + term(other) + "\n";
        }
        std::vector<Setting> made;
        for (const std::string& option : options) {
            made.push_back({option, option + std::to_string(1 + pick(3))});
        }
        Situation now(body, made);
        const std::string last = options[pick(3)];
        const std::vector<Conflict> before = now.conflicts();
        if (before.empty()) {
            continue;
        }
        const Changes changes = now.changes(last);
        for (const Change& change : changes) {
            ASSERT_EQ(change.choices.size(), 1U);
            ASSERT_TRUE(now.ppd.mark(change.keyword, change.choices.front()));
        }
        const auto settings = [](const std::vector<Conflict>& conflicts) {
            std::set<std::vector<Setting>> result;
            for (const Conflict& conflict : conflicts) {
                std::vector<Setting> sorted = conflict.settings;
                std::sort(sorted.begin(), sorted.end());
                result.insert(sorted);
            }
            return result;
        };
        const auto after =
            settings(conflictsIn(now.constraints, marksOf(now.ppd, now.constraints)));
        if (changes.empty()) {
            continue;
        }
        ++proposed;
        EXPECT_FALSE(after.contains(*settings({before.front()}).begin())) << body;
        EXPECT_LE(after.size(), before.size()) << body;
    }
    EXPECT_GT(proposed, 100U);
}

TEST(CanBeResolved, IsFalseOnlyWhereNothingIsTheUsersToChoose)
{
    const std::string equipment = "*OpenGroup: InstallableOptions/Equipment\n" +
                                  optionText("Unit", {"False", "True"}, "Boolean") +
                                  optionText("Motor", {"M1", "M2"}) +
                                  "*CloseGroup: InstallableOptions\n";
    const Situation fixed(equipment + "*UIConstraints: *Unit False *Motor M1\n", {});
    EXPECT_FALSE(canBeResolved(fixed.conflicts().at(0), fixed.features));
    const Situation tape(equipment + "*UIConstraints: *Unit False *PageSize T24\n", {});
    EXPECT_TRUE(canBeResolved(tape.conflicts().at(0), tape.features));
    const Situation option(kOptions + equipment + "*UIConstraints: *Unit False *A A1\n", {});
    EXPECT_TRUE(canBeResolved(option.conflicts().at(0), option.features));
}

TEST(ConflictSentence, NamesOptionsAndChoicesAsThePpdDoes)
{
    const Situation two(kOptions + "*UIConstraints: *A A2 *B B2\n", {{"A", "A2"}, {"B", "B2"}});
    EXPECT_EQ(conflictSentence(two.conflicts(), two.features),
              "The A \"(A2)\" does not go with The B \"(B2)\".");
    const Situation three(kOptions + "*cupsUIConstraints X: \"*A A1 *B B1 *C C1\"\n"
                                     "*UIConstraints: *A A1 *C C1\n",
                          {});
    EXPECT_EQ(conflictSentence(three.conflicts().back(), three.features),
              "The A \"(A1)\" does not go with The B \"(B1)\" and The C \"(C1)\".");
    EXPECT_EQ(conflictSentence(three.conflicts(), three.features),
              "The A \"(A1)\" does not go with The C \"(C1)\". (1 more)");
    EXPECT_EQ(conflictSentence(std::vector<Conflict>(), three.features), "");
}

TEST(ChangesTitle, SaysWhatIsSetToWhat)
{
    const Situation now(kOptions + optionText("M", {"M1", "M2"}, "PickMany"), {});
    EXPECT_EQ(changesTitle({{"B", {"B1"}}}, now.features), "Set The B to \"(B1)\"");
    EXPECT_EQ(changesTitle({{"B", {"B3"}}, {"M", {"M1", "M2"}}}, now.features),
              "Set The B to \"(B3)\", Set The M to \"(M1), (M2)\"");
    EXPECT_EQ(changesTitle({{"M", {}}}, now.features), "Choose nothing for The M");
    EXPECT_EQ(changesTitle({{"%n", {"\n{1}"}}}, now.features), "Set %n to \" {1}\"");
}

TEST(JobConflict, HoldsAJobBackWithTheSentence)
{
    Situation now(kOptions + "*UIConstraints: *A A2 *B B2\n", {{"A", "A2"}});
    EXPECT_FALSE(jobConflict(now.ppd));
    now.ppd.mark("B", "B2");
    const Failure failure = jobConflict(now.ppd);
    EXPECT_EQ(failure.text, "Not printed: The A \"(A2)\" does not go with The B \"(B2)\".");
    EXPECT_EQ(failure.status, ExitStatus::NoChoice);
    EXPECT_FALSE(jobConflict(PPDFile()));
}

TEST(JobConflict, NamesAWayOutThatLeavesWhatWasAskedForLast)
{
    Situation now(kOptions + "*UIConstraints: *A A2 *B B2\n", {});
    const std::string sentence = "Not printed: The A \"(A2)\" does not go with The B \"(B2)\".";
    EXPECT_FALSE(jobConflict(now.ppd, {{"A", "A2"}})); // what is marked counts alone
    now.ppd.mark("A", "A2");
    now.ppd.mark("B", "B2");
    const auto said = [&](const WantedOptions& wanted) {
        const Failure failure = jobConflict(now.ppd, wanted);
        EXPECT_EQ(failure.status, ExitStatus::NoChoice);
        return failure.text;
    };
    EXPECT_EQ(said({{"A", "A2"}, {"B", "B2"}}), sentence + " A way out: --set A=A1");
    EXPECT_EQ(said({{"B", "B2"}, {"A", "A2"}}), sentence + " A way out: --set B=B1");
    EXPECT_EQ(said({{"A", "A2"}, {"C", "C2"}}), sentence + " A way out: --set B=B1");
}

TEST(JobConflict, SaysNoMoreThanTheConflictWhereItKnowsNoWayOut)
{
    Situation now(optionText("A", {"A1", "A2"}) + "*UIConstraints: *A A1 *PageSize T6\n"
                                                  "*UIConstraints: *A A2 *PageSize T6\n",
                  {{"PageSize", "T6"}});
    EXPECT_EQ(jobConflict(now.ppd, {}).text,
              "Not printed: The A \"(A1)\" does not go with Tape \"6 mm\".");
}

TEST(JobConflict, LetsAJobPassThatOnlyTheEquipmentSpeaksAgainst)
{
    const Situation fitted("*OpenGroup: InstallableOptions/Equipment\n" +
                               optionText("Unit", {"U1", "U2"}) +
                               optionText("Motor", {"M1", "M2"}) +
                               "*CloseGroup: InstallableOptions\n"
                               "*UIConstraints: *Unit U1 *Motor M1\n",
                           {});
    EXPECT_EQ(fitted.conflicts().size(), 1U);
    EXPECT_FALSE(jobConflict(fitted.ppd));
}

} // namespace
} // namespace dialog
