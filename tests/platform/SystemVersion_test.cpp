#include "platform/SystemVersion.hpp"

#include <gtest/gtest.h>

#include <ostream>

using printing::parseSystemVersion;

namespace {

void expectRelease(std::string_view text, std::int32_t major, std::int32_t minor,
                   std::int32_t bugFix)
{
    const auto release = parseSystemVersion(text);
    ASSERT_TRUE(release) << text;
    EXPECT_EQ(release->major, major) << text;
    EXPECT_EQ(release->minor, minor) << text;
    EXPECT_EQ(release->bugFix, bugFix) << text;
}

} // namespace

TEST(ParseSystemVersion, ReadsOneToThreeNumbers)
{
    expectRelease("10.4.11", 10, 4, 11);
    expectRelease("10.5", 10, 5, 0);
    expectRelease("11", 11, 0, 0);
    expectRelease("0", 0, 0, 0);
    expectRelease("007.08.09", 7, 8, 9);
}

TEST(ParseSystemVersion, ReadsTheLargestNumberThatFits)
{
    expectRelease("2147483647.0.1", 2147483647, 0, 1);
}

TEST(ParseSystemVersion, AnswersNothingForAnyOtherText)
{
    for (const char* text : {"",      ".",        "10.",      ".5",         "10..5",
                             "10.5.", "10.5.1.2", "-10.5",    "+10",        "10.-5",
                             " 10",   "10 ",      "10.5 ",    "10,5",       "ten",
                             "10.x",  "0x0a",     "10.5beta", "2147483648", "10.99999999999999"})
        EXPECT_FALSE(parseSystemVersion(text)) << '"' << text << '"';
    EXPECT_FALSE(parseSystemVersion(std::string_view("10\0.5", 5)));
}
