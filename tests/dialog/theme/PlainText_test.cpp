#include "dialog/theme/PlainText.hpp"

#include <gtest/gtest.h>

#include <string>

namespace dialog {
namespace {

TEST(PlainLine, IsWhatALatinGreekCyrillicOrEastAsianSentenceIsWrittenWith)
{
    for (const char16_t* const text :
         {u"24 mm tape", u"!~", u"24.0 mm × 100.0 mm", u"Bandlänge, größer", u"αΩ", u"Лента",
          u"“quoted” – ‘so’…", u"テープ幅", u"纸带宽度", u"테이프 너비"}) {
        EXPECT_TRUE(isPlainLine(text)) << std::u16string(text).size();
    }
}

TEST(PlainLine, HasNoBreaksTabsOrLettersThatAreNotSeen)
{
    for (const char16_t* const text : {u"two\nlines", u"a\tb", u"a\u00A0b", u"a\u00ADb",
                                       u"a\u200Bb", u"a\u2028b", u"a\u007Fb"}) {
        EXPECT_FALSE(isPlainLine(text)) << std::u16string(text).size();
    }
}

TEST(PlainLine, HasNoLettersThatJoinCombineOrRunFromTheRight)
{
    for (const char16_t* const text :
         {u"e\u0301", u"\u05D0\u05D1", u"\u0627\u0628", u"\u0915\u094D", u"\u0E01\u0E33",
          u"\U0001F3F7", u"\u3099", u"\u202Eabc"}) {
        EXPECT_FALSE(isPlainLine(text)) << std::u16string(text).size();
    }
}

TEST(PlainLine, HasNoPairThatBecomesOneLetter)
{
    for (const char16_t* const text : {u"file", u"off", u"flat", u"of it all: if fi"}) {
        EXPECT_FALSE(isPlainLine(text));
    }
    for (const char16_t* const text : {u"of it", u"f", u"fa", u"ifa"}) {
        EXPECT_TRUE(isPlainLine(text));
    }
}

TEST(PlainLine, HasNoSpaceAtEitherEndAndIsNotEmptyOrEndless)
{
    EXPECT_FALSE(isPlainLine(u""));
    EXPECT_FALSE(isPlainLine(u" a"));
    EXPECT_FALSE(isPlainLine(u"a "));
    EXPECT_TRUE(isPlainLine(u"a  b"));
    EXPECT_TRUE(isPlainLine(std::u16string(200, u'a')));
    EXPECT_FALSE(isPlainLine(std::u16string(201, u'a')));
}

TEST(LineStart, IsAtTheLeftInTheMiddleOrAtTheRight)
{
    EXPECT_EQ(lineStart(75, 300.5, Alignment::Left), 0);
    EXPECT_EQ(lineStart(75, 300.5, Alignment::Center), 112.75);
    EXPECT_EQ(lineStart(75, 300.5, Alignment::Right), 225.5);
}

TEST(MostThatFit, IsTheLastOfThoseThatDoAndNeverAll)
{
    for (std::size_t length = 1; length <= 40; ++length) {
        for (std::size_t most = 0; most < length; ++most) {
            EXPECT_EQ(mostThatFit(length, [=](std::size_t units) { return units <= most; }), most);
        }
        EXPECT_EQ(mostThatFit(length, [](std::size_t) { return true; }), length - 1);
    }
    EXPECT_EQ(mostThatFit(0, [](std::size_t) { return true; }), 0u);
}

TEST(MostThatFit, AsksAFewTimes)
{
    int asked = 0;
    mostThatFit(1024, [&](std::size_t units) { return ++asked > 0 && units < 700; });
    EXPECT_LE(asked, 10);
}

} // namespace
} // namespace dialog
