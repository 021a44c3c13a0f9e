// Texts and numbers out of fixed-size records.

#include "diagnostics/RecordText.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <string>

using namespace diagnostics;

TEST(BoundedText, EndsAtTheFirstNul)
{
    EXPECT_EQ(boundedText("abc\0def", 7), "abc");
    EXPECT_EQ(boundedText("\0abc", 4), "");
}

TEST(BoundedText, EndsWithTheRecordWhereThereIsNoNul)
{
    const char record[4] = {'a', 'b', 'c', 'd'};
    EXPECT_EQ(boundedText(record, sizeof record), "abcd");
    EXPECT_EQ(boundedText(record, 2), "ab");
}

TEST(BoundedText, IsEmptyForNothing)
{
    EXPECT_EQ(boundedText(nullptr, 5), "");
    EXPECT_EQ(boundedText("abc", 0), "");
}

TEST(SixDecimals, WritesWhatTheFormatWouldWithAPoint)
{
    EXPECT_STREQ(SixDecimals(0.0f).text(), "0.000000");
    EXPECT_STREQ(SixDecimals(10.0f).text(), "10.000000");
    EXPECT_STREQ(SixDecimals(-1.5f).text(), "-1.500000");
    EXPECT_STREQ(SixDecimals(0.1f).text(), "0.100000");
}

TEST(SixDecimals, HoldsTheWidestNumberAndWhatIsNone)
{
    EXPECT_STREQ(SixDecimals(-std::numeric_limits<float>::max()).text(),
                 "-340282346638528859811704183484516925440.000000");
    EXPECT_STREQ(SixDecimals(std::numeric_limits<float>::infinity()).text(), "inf");
}
