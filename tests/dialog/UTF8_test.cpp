#include "dialog/UTF8.hpp"

#include <gtest/gtest.h>

#include <string_view>

using dialog::asUTF8;
using dialog::isUTF8;

using namespace std::string_view_literals;

TEST(UTF8, IsEveryLengthOfCharacterFromItsFirstToItsLast)
{
    for (const std::string_view text :
         {""sv, "\0\x7F"sv, "\xC2\x80\xDF\xBF"sv, "\xE0\xA0\x80\xEF\xBF\xBF"sv,
          "\xED\x9F\xBF\xEE\x80\x80"sv, "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"sv, "a\u00e9\u65e5"sv}) {
        EXPECT_TRUE(isUTF8(text)) << text;
        EXPECT_EQ(asUTF8(text), text);
    }
}

TEST(UTF8, IsNothingCutOffOverlongOrBeyondItsEnd)
{
    for (const std::string_view text :
         {"\x80"sv, "\xBF"sv, "\xC1\xBF"sv, "\xC3"sv, "\xC3("sv, "\xE0\x9F\xBF"sv, "\xE6\x97"sv,
          "\xE6(\xA5"sv, "\xED\xA0\x80"sv, "\xED\xBF\xBF"sv, "\xF0\x8F\xBF\xBF"sv, "\xF0\x9F\x8F"sv,
          "\xF4\x90\x80\x80"sv, "\xF5\x80\x80\x80"sv, "\xFF"sv, "ab\xC3"sv}) {
        EXPECT_FALSE(isUTF8(text)) << text;
    }
}

TEST(UTF8, IsMadeOfBytesThatAreNoneByTakingThemForLetters)
{
    EXPECT_EQ(asUTF8("l\xE4"
                     "bel"),
              "l\u00e4bel");
    EXPECT_EQ(asUTF8("\xFF\x80z"), "\u00ff\u0080z");
}
