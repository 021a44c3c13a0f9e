#include "dialog/memory/Fit.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

PPDFile sample(const std::string& name)
{
    Failure failure;
    PPDFile ppd = PPDFile::fromPath(SAMPLES_FOLDER "/sample-tape" + name + ".ppd", failure);
    EXPECT_EQ(failure.text, "");
    return ppd;
}

JobOptions jobOptions(const std::vector<JobOption>& all)
{
    JobOptions options;
    for (const JobOption& option : all) {
        options.set(option.keyword, option.choice);
    }
    return options;
}

TEST(Fit, TakesWhatThePrinterLists)
{
    const Fit found = fit({"TC12", {{"Resolution", "300x600dpi"}, {"VnPriority", "Speed"}}},
                          sample("-resolution"));
    EXPECT_EQ(found.tape, "TC12");
    EXPECT_EQ(found.options, (Wanted{{"Resolution", "300x600dpi"}, {"VnPriority", "Speed"}}));
    EXPECT_TRUE(found.leftOut.empty());
}

TEST(Fit, LeavesOutWhatThePrinterDoesNotListAndNamesItByItsTitle)
{
    const Fit found =
        fit({"TC36", {{"VnPriority", "Fastest"}, {"Colour", "Red"}, {"resolution", "300x600dpi"}}},
            sample("-resolution"));
    EXPECT_EQ(found.tape, "");
    EXPECT_EQ(found.options, (Wanted{{"resolution", "300x600dpi"}}));
    EXPECT_EQ(found.leftOut, (std::vector<std::string>{"Tape TC36 is left out",
                                                       "Print Quality Fastest is left out",
                                                       "Colour Red is left out"}));
}

TEST(Fit, TakesAnyLengthAndNothingThatIsNone)
{
    const Fit found =
        fit({"TC12", {{"VnTapeLength", "5000"}, {"VnMargin", "2.25"}}}, sample("-resolution"));
    EXPECT_EQ(found.options, (Wanted{{"VnTapeLength", "5000"}, {"VnMargin", "2.25"}}));
    const Fit none =
        fit({"TC12", {{"VnTapeLength", "long"}, {"VnMargin", "-1"}}}, sample("-resolution"));
    EXPECT_TRUE(none.options.empty());
    EXPECT_EQ(none.leftOut,
              (std::vector<std::string>{"Tape Length long is left out", "Margin -1 is left out"}));
}

TEST(Fit, LeavesOutTheMarginOfAPrinterThatHasNone)
{
    const Fit found = fit({"TC12", {{"VnTapeLength", "50"}, {"VnMargin", "2"}}}, sample("-none"));
    EXPECT_EQ(found.options, (Wanted{{"VnTapeLength", "50"}}));
    EXPECT_EQ(found.leftOut, (std::vector<std::string>{"VnMargin 2 is left out"}));
}

TEST(Fit, TakesTheTapeFromItsOwnPlaceAlone)
{
    const Fit found =
        fit({"", {{"PageSize", "TC12"}, {"PageRegion", "TC12"}}}, sample("-resolution"));
    EXPECT_EQ(found.tape, "");
    EXPECT_TRUE(found.options.empty());
    EXPECT_TRUE(found.leftOut.empty());
}

TEST(WorthKeeping, IsWhatThePrinterHasAndNoMatterOfTheServer)
{
    EXPECT_EQ(worthKeeping({{"PageSize", "TC12"},
                            {"PageRegion", "TC12"},
                            {"VnTapeLength", "62.5"},
                            {"VnMargin", "0.0"},
                            {"Resolution", "300x600dpi"},
                            {"job-hold-until", "indefinite"}},
                           sample("-resolution")),
              (std::vector<JobOption>{{"VnTapeLength", "62.5"}, {"Resolution", "300x600dpi"}}));
}

TEST(ChangedLengths, SayWhatBecameOfALengthOutsideTheLimits)
{
    const JobOptions now = jobOptions({{"VnTapeLength", "1000.0"}, {"VnMargin", "3.0"}});
    EXPECT_EQ(changedLengths({{"VnTapeLength", "2000"}, {"VnMargin", "3"}, {"Resolution", "9"}},
                             now, sample("-resolution")),
              (std::vector<std::string>{"Tape Length 2000 mm became 1000.0 mm"}));
    EXPECT_EQ(changedLengths({{"VnMargin", "3.25"}}, now, sample("-resolution")),
              (std::vector<std::string>{"Margin 3.25 mm became 3.0 mm"}));
}

TEST(ChangedLengths, SayNothingOfRounding)
{
    const JobOptions now = jobOptions({{"VnTapeLength", "57.2"}});
    EXPECT_TRUE(changedLengths({{"VnTapeLength", "57.0"}}, now, sample("-inches")).empty());
    EXPECT_TRUE(changedLengths({{"VnMargin", "57.0"}}, now, sample("-inches")).empty());
}

TEST(Overlaid, PutsOneOverTheOtherButNotOverWhatIsFirm)
{
    EXPECT_EQ(
        overlaid({{"A", "1"}, {"B", "2"}}, {{"B", "3"}, {"C", "4"}, {"A", "5"}}, {{"A", "1"}}),
        (Wanted{{"A", "1"}, {"B", "3"}, {"C", "4"}}));
}

TEST(UnknownTo, FindsWhatIsForThePrintServer)
{
    EXPECT_EQ(unknownTo(sample("-resolution"),
                        {{"Resolution", "300x600dpi"}, {"job-priority", "70"}, {"VnMargin", "3"}}),
              (Wanted{{"job-priority", "70"}}));
}

} // namespace
} // namespace dialog
