#include "dialog/SummaryLines.hpp"
#include "dialog/job/JobOptions.hpp"
#include "dialog/job/WantedLength.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

using Options = std::vector<JobOption>;

TEST(JobOptions, KeepTheirFirstPlaceAndTheirLastValue)
{
    JobOptions options;
    options.set("VnTapeLength", "100.0");
    options.set("Resolution", "300x300dpi");
    options.set("VnTapeLength", "62.5");
    EXPECT_EQ(options.all(), (Options{{"VnTapeLength", "62.5"}, {"Resolution", "300x300dpi"}}));
    ASSERT_NE(options.find("Resolution"), nullptr);
    EXPECT_EQ(*options.find("Resolution"), "300x300dpi");
    EXPECT_EQ(options.find("resolution"), nullptr);
}

TEST(JobOptions, IgnoreAnEmptyKeywordAndForgetARemovedOne)
{
    JobOptions options;
    options.set("", "x");
    options.set("A", "1");
    options.remove("A");
    options.remove("B");
    EXPECT_TRUE(options.all().empty());
}

TEST(OptionsToSend, BeginWithTheTapeAndTheCopies)
{
    JobOptions options;
    options.set("VnMargin", "3.0");
    EXPECT_EQ(optionsToSend(options, "TC24", 2),
              (Options{{"PageSize", "TC24"}, {"copies", "2"}, {"VnMargin", "3.0"}}));
}

TEST(OptionsToSend, LeaveOutASingleCopyAndAnEmptyTapeAndEmptyChoices)
{
    JobOptions options;
    options.set("VnMargin", "");
    options.set("VnCompress", "On");
    EXPECT_EQ(optionsToSend(options, "", 1), (Options{{"VnCompress", "On"}}));
}

TEST(OptionsToSend, NameTheTapeAndTheCopiesOnceWhateverWasSet)
{
    JobOptions options;
    options.set("PageSize", "TC12");
    options.set("copies", "99");
    EXPECT_EQ(optionsToSend(options, "TC24", 1), (Options{{"PageSize", "TC24"}}));
    EXPECT_EQ(optionsToSend(options, "", 3), (Options{{"copies", "3"}, {"PageSize", "TC12"}}));
}

TEST(OptionLines, AreOneLineEachWhateverIsInThem)
{
    EXPECT_EQ(optionLines({{"A", "1"}, {"B", "x=y\nC=2\r\\"}}), "A=1\nB=x=y\\nC=2\\r\\\\\n");
    EXPECT_EQ(optionLines({}), "");
}

TEST(JobTitle, IsTheGivenOneElseTheDocumentsNameWithoutItsFolder)
{
    EXPECT_EQ(jobTitle("Mine", "/a/b.png"), "Mine");
    EXPECT_EQ(jobTitle("", "/a/b.png"), "b.png");
    EXPECT_EQ(jobTitle("", "b.png"), "b.png");
    EXPECT_EQ(jobTitle("", "a/b/"), "b");
    EXPECT_EQ(jobTitle("", ""), "Label");
    EXPECT_EQ(jobTitle("", "///"), "Label");
}

TEST(JobTitle, IsNoLongerThanAServerTakesAndHasNoLineBreaks)
{
    EXPECT_EQ(jobTitle("a\nb\tc", ""), "a b c");
    EXPECT_EQ(jobTitle("", "/x/a\rb.png"), "a b.png");
    EXPECT_EQ(jobTitle("", "/x/l\xE4"
                           "bel.png"),
              "l\u00e4bel.png");
    EXPECT_EQ(jobTitle(std::string(252, 'x'), ""), std::string(252, 'x'));
    EXPECT_EQ(jobTitle(std::string(300, 'x'), ""), std::string(252, 'x') + "...");
    // 251 bytes and the two of one letter: no half of it.
    EXPECT_EQ(jobTitle(std::string(251, 'x') + "\u00e9\u00e9", ""), std::string(251, 'x') + "...");
}

TEST(SummaryText, IsALineForEachTitle)
{
    EXPECT_EQ(summaryText({{"Tape Length", "62.5mm"}, {"A\nB", "c\rd"}}),
              "Tape Length: 62.5mm\nA B: c d\n");
}

TEST(WantedLength, IsAPositiveNumberWithADot)
{
    EXPECT_EQ(parseMillimetres("62.5"), 62.5);
    for (const char* text : {"", "0", "-3", "1,5", "12mm", " 3", "inf", "nan", "1e999"}) {
        EXPECT_FALSE(parseMillimetres(text)) << text;
    }
}

TEST(WantedLength, MayBeNothingForAMarginAlone)
{
    EXPECT_EQ(parseMargin("0"), 0);
    EXPECT_EQ(parseMargin("0.0"), 0);
    EXPECT_EQ(parseMargin("2.5"), 2.5);
    EXPECT_FALSE(parseMargin("-0"));
    EXPECT_FALSE(parseMargin("-1"));
    EXPECT_FALSE(parseMargin("wide"));
}

TEST(WantedLength, IsMeasuredAsNoLessThanItIs)
{
    for (int millimetres = 1; millimetres <= 5000; ++millimetres) {
        // The panel's own way back, which it cuts to whole millimetres.
        const double measured = paperPoints(millimetres) / 72.0 / 0.0393701;
        ASSERT_GE(measured, millimetres);
        ASSERT_NEAR(measured, millimetres, 1e-9);
    }
}

TEST(WantedLength, BecomesPointsByThePanelsOwnFactor)
{
    EXPECT_DOUBLE_EQ(paperPoints(100), 283.46472);
}

} // namespace
} // namespace dialog
