#include "dialog/memory/PresetName.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

std::string repeated(std::string_view letter, std::size_t times)
{
    std::string text;
    for (std::size_t i = 0; i < times; ++i) {
        text += letter;
    }
    return text;
}

TEST(TidiedName, LosesBlanksOfEveryKindAroundIt)
{
    EXPECT_EQ(tidiedName("  Cables\t"), "Cables");
    EXPECT_EQ(tidiedName("\u3000\u00A0標識\u2003\u200B\uFEFF"), "標識");
    EXPECT_EQ(tidiedName("two words"), "two words");
    EXPECT_EQ(tidiedName("two\u3000words"), "two\u3000words");
}

TEST(TidiedName, IsEmptyWhenThereIsNothingToSee)
{
    for (const char* typed : {"", " ", "\n", "\u200B", "\u00A0\u2009\u202F", "\u0085", "\x7F"}) {
        EXPECT_EQ(tidiedName(typed), "") << typed;
    }
}

TEST(TidiedName, IsOneLine)
{
    EXPECT_EQ(tidiedName("a\nb\x01"
                         "c\u0085d\u2028e"),
              "a b c d e");
}

TEST(TidiedName, KeepsTheLettersOfEveryScript)
{
    for (const char* typed : {"é", "e\u0301", "ラベル", "😀", "\u00A9", "\u20AC", "\u2010"}) {
        EXPECT_EQ(tidiedName(typed), typed);
    }
    // An emoji of several characters joined inside stays whole.
    EXPECT_EQ(tidiedName("👩\u200D🔧"), "👩\u200D🔧");
}

TEST(TidiedName, LeavesBytesThatAreNotUtf8)
{
    EXPECT_EQ(tidiedName("a\xffz"), "a\xffz");
    EXPECT_EQ(tidiedName("\x80\x80"), "\x80\x80");
}

TEST(CheckName, CountsLettersNotBytes)
{
    for (const char* letter : {"x", "ü", "標", "😀"}) {
        EXPECT_EQ(checkName(repeated(letter, 60), {}), NameFault::None) << letter;
        EXPECT_EQ(checkName(repeated(letter, 61), {}), NameFault::TooLong) << letter;
    }
    EXPECT_EQ(checkName("", {}), NameFault::Empty);
}

TEST(CheckName, RefusesTheNamesOfOtherEntries)
{
    const std::string reserved[] = {"Last Used", "Save As..."};
    EXPECT_EQ(checkName("Save As...", reserved), NameFault::Reserved);
    EXPECT_EQ(checkName("Last Used", reserved), NameFault::Reserved);
    EXPECT_EQ(checkName("Last used", reserved), NameFault::None);
}

} // namespace
} // namespace dialog
