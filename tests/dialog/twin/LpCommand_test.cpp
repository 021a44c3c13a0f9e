#include "dialog/twin/LpCommand.hpp"

#include <cups/cups.h>
#include <gtest/gtest.h>

#include <random>

namespace dialog {
namespace {

TEST(ShellWord, IsBareWhenNothingInItIsSpecial)
{
    EXPECT_EQ(shellWord("TC24"), "TC24");
    EXPECT_EQ(shellWord("PageSize=Custom.62x40.5mm"), "PageSize=Custom.62x40.5mm");
    EXPECT_EQ(shellWord("/srv/labels/a-b_c.png"), "/srv/labels/a-b_c.png");
}

TEST(ShellWord, IsInSingleQuotesOtherwise)
{
    EXPECT_EQ(shellWord(""), "''");
    EXPECT_EQ(shellWord("a b"), "'a b'");
    EXPECT_EQ(shellWord("it's"), "'it'\\''s'");
    EXPECT_EQ(shellWord("$(rm -r /)"), "'$(rm -r /)'");
    EXPECT_EQ(shellWord("~"), "'~'");
    EXPECT_EQ(shellWord("=ls"), "'=ls'");
    EXPECT_EQ(shellWord("a\nb"), "'a\nb'");
    EXPECT_EQ(shellWord("Größe"), "'Größe'");
}

TEST(LpOption, EscapesWhatLpItselfReads)
{
    EXPECT_EQ(lpOption({"A", "x y"}), "A=x\\ y");
    EXPECT_EQ(lpOption({"A", "\"x\\'"}), "A=\\\"x\\\\\\'");
    EXPECT_EQ(lpOption({"A", "{x}"}), "A=\\{x\\}");
    EXPECT_EQ(lpOption({"a b", "x"}), std::nullopt);
    EXPECT_EQ(lpOption({"", "x"}), std::nullopt);
    EXPECT_EQ(lpOption({"a=b", "x"}), std::nullopt);
}

TEST(LpOption, IsReadBackByThePrintLibraryWhateverIsInIt)
{
    std::mt19937 dice(40'405);
    const std::string_view letters = " \t'\"\\{}=,;$`ab1.-/<>&|()\xc3\xa9";
    for (int i = 0; i < 20000; ++i) {
        std::string choice = "x";
        for (unsigned n = dice() % 9; n > 0; --n) {
            choice += letters[dice() % letters.size()];
        }
        std::rotate(choice.begin(), choice.begin() + 1, choice.end());
        const auto text = lpOption({"Key", choice});
        ASSERT_TRUE(text);
        cups_option_t* options = nullptr;
        const int count = cupsParseOptions(text->c_str(), 0, &options);
        ASSERT_EQ(count, 1) << *text;
        EXPECT_STREQ(options[0].name, "Key") << *text;
        EXPECT_EQ(options[0].value, choice) << *text;
        cupsFreeOptions(count, options);
    }
}

TEST(LpCommand, NamesQueueTitleCopiesOptionsAndTheWholePath)
{
    EXPECT_EQ(lpCommand({"tape",
                         "My label",
                         {{"PageSize", "Custom.24x40mm"}, {"copies", "2"}, {"Note", "a b"}},
                         "/srv/label.png"}),
              "lp -d tape -t 'My label' -o PageSize=Custom.24x40mm -n 2 -o 'Note=a\\ b' "
              "/srv/label.png");
    EXPECT_EQ(lpCommand({"tape", "x", {{"a b", "c"}}, "/x"}), std::nullopt);
    // A path from here is told from the root, so that no dash can begin it.
    EXPECT_NE(lpCommand({"tape", "x", {}, "-n"})->find("/-n"), std::string::npos);
}

} // namespace
} // namespace dialog
