#include "platform/UriScheme.hpp"

#include <gtest/gtest.h>

using printing::schemeOf;

TEST(SchemeOf, KeepsTheLetterCase)
{
    EXPECT_EQ(schemeOf("VNKMUSB://x"), "VNKMUSB");
    EXPECT_EQ(schemeOf("usb://"), "usb");
    EXPECT_EQ(schemeOf("USB://"), "USB");
}

TEST(SchemeOf, TakesDigitsPlusMinusAndPointAfterTheFirstLetter)
{
    EXPECT_EQ(schemeOf("a1+b-c.d:rest"), "a1+b-c.d");
    EXPECT_EQ(schemeOf("cups-pdf:/"), "cups-pdf");
}

TEST(SchemeOf, EndsAtTheFirstColon)
{
    EXPECT_EQ(schemeOf("a:b:c"), "a");
}

TEST(SchemeOf, IsEmptyWithoutAScheme)
{
    EXPECT_EQ(schemeOf(""), "");
    EXPECT_EQ(schemeOf("usb"), "");
    EXPECT_EQ(schemeOf("://x"), "");
    EXPECT_EQ(schemeOf("1usb://x"), "");
    EXPECT_EQ(schemeOf("/path:with/colon"), "");
    EXPECT_EQ(schemeOf("a b://x"), "");
    EXPECT_EQ(schemeOf("\xc3\xa9://x"), "");
}

TEST(SchemeOf, TakesNoNeighbourOfALetterOrDigitForOne)
{
    for (const char* uri : {"@x://", "[x://", "`x://", "{x://", "a@b://", "a[b://", "a`b://",
                            "a{b://", "a/b://", "a;b://"})
        EXPECT_EQ(schemeOf(uri), "") << uri;
    EXPECT_EQ(schemeOf("AZaz09://"), "AZaz09");
    EXPECT_EQ(schemeOf("Z://"), "Z");
    EXPECT_EQ(schemeOf("z://"), "z");
}
