// Which display formats may be applied to one value.

#include "textentry/FormatScan.hpp"

#include <gtest/gtest.h>

#include <string_view>

using namespace textentry;

namespace {

FormatScan scanned(std::u16string_view format)
{
    FormatScan scan;
    for (const char16_t character : format)
        scan.take(character);
    return scan;
}

bool takesObject(std::u16string_view format)
{
    return scanned(format).takesOne(FormatValue::Object);
}

bool takesInteger(std::u16string_view format)
{
    return scanned(format).takesOne(FormatValue::Integer);
}

bool takesEither(std::u16string_view format)
{
    return takesObject(format) || takesInteger(format);
}

} // namespace

TEST(FormatScan, FindsThePlaceholderAnywhereEvenBehindAPercentSign)
{
    EXPECT_TRUE(scanned(u"%@").holdsObjectPlaceholder());
    EXPECT_TRUE(scanned(u"L %@ mm").holdsObjectPlaceholder());
    EXPECT_TRUE(scanned(u"%%@").holdsObjectPlaceholder());
    EXPECT_FALSE(scanned(u"%5@").holdsObjectPlaceholder());
    EXPECT_FALSE(scanned(u"% @").holdsObjectPlaceholder());
    EXPECT_FALSE(scanned(u"@%").holdsObjectPlaceholder());
    EXPECT_FALSE(scanned(u"").holdsObjectPlaceholder());
}

TEST(FormatScan, KnowsThePlaceholderAlone)
{
    EXPECT_TRUE(scanned(u"%@").isObjectPlaceholder());
    EXPECT_FALSE(scanned(u"%@ ").isObjectPlaceholder());
    EXPECT_FALSE(scanned(u"%d").isObjectPlaceholder());
    for (const auto* format : {u"%%@", u"a%@", u"ab%@", u"abc%@", u"abcd%@", u"abcde%@"})
        EXPECT_FALSE(scanned(format).isObjectPlaceholder()) << std::u16string_view(format).size();
}

TEST(FormatScan, AnObjectFitsItsPlaceholder)
{
    for (const auto* format :
         {u"%@", u"%@ mm", u"%5@", u"%-12@|", u"%1$@", u"%1$@ %1$@", u"100%% %@"})
        EXPECT_TRUE(takesObject(format)) << std::u16string_view(format).size();
}

TEST(FormatScan, AnIntegerDoesNotFitAnObjectsPlaceholder)
{
    for (const auto* format : {u"%@", u"%5@", u"%1$@"})
        EXPECT_FALSE(takesInteger(format)) << std::u16string_view(format).size();
}

TEST(FormatScan, AnIntegerFitsTheIntegerDirectives)
{
    for (const auto* format :
         {u"%d",   u"%i",   u"%u",           u"%o",    u"%x",   u"%X",    u"%c",
          u"%5d",  u"%05d", u"%-5d|",        u"%+d",   u"% d",  u"%.3d",  u"%ld",
          u"%hhd", u"%1$d", u"%1$d of %1$d", u"%999d", u"%10d", u"%100d", u"%d %%"})
        EXPECT_TRUE(takesInteger(format)) << std::u16string_view(format).size();
}

TEST(FormatScan, EveryNumberOfAFormatStandsAlone)
{
    for (const auto* format : {u"%900%%900d", u"%900.900d", u"%1$900d", u"%900d %% %%"})
        EXPECT_TRUE(takesInteger(format)) << std::u16string_view(format).size();
    // A place given for one directive is none for the next.
    EXPECT_FALSE(takesEither(u"%1$d %d"));
    EXPECT_FALSE(takesEither(u"%1$% %d %d"));
}

TEST(FormatScan, AFormatWithoutDirectivesFitsEither)
{
    for (const auto* format : {u"", u"mm", u"100 %%", u"%%@"}) {
        EXPECT_TRUE(takesObject(format));
        EXPECT_TRUE(takesInteger(format));
    }
}

TEST(FormatScan, NothingFitsATextPointerOrAPlaceToWriteTo)
{
    for (const auto* format : {u"%s", u"%5s", u"%S", u"%n", u"%ln", u"%1$n", u"%@%n"})
        EXPECT_FALSE(takesEither(format)) << std::u16string_view(format).size();
}

TEST(FormatScan, NothingFitsAFloatingPointDirective)
{
    for (const auto* format : {u"%f", u"%.1f", u"%e", u"%g", u"%a", u"%F", u"%E", u"%G", u"%A"})
        EXPECT_FALSE(takesEither(format)) << std::u16string_view(format).size();
}

TEST(FormatScan, OneValueDoesNotFitTwoDirectives)
{
    EXPECT_FALSE(takesEither(u"%@ %@"));
    EXPECT_FALSE(takesEither(u"%d %d"));
    EXPECT_FALSE(takesEither(u"%d %d %d %d"));
    EXPECT_FALSE(takesEither(u"%@ %1$@"));
    EXPECT_FALSE(takesEither(u"%2$@"));
    EXPECT_FALSE(takesEither(u"%$d"));
    EXPECT_FALSE(takesEither(u"%0$d"));
    EXPECT_FALSE(takesEither(u"%11$d"));
}

TEST(FormatScan, OneValueDoesNotFitAWidthTakenFromTheArguments)
{
    EXPECT_FALSE(takesEither(u"%*d"));
    EXPECT_FALSE(takesEither(u"%.*d"));
}

TEST(FormatScan, NothingFitsAWidthThatFillsTheMemory)
{
    EXPECT_FALSE(takesEither(u"%1000d"));
    EXPECT_FALSE(takesEither(u"%2147483647d"));
    EXPECT_FALSE(takesEither(u"%.99999999999999999999d"));
}

TEST(FormatScan, NothingFitsADirectiveThatIsCutOffOrUnknown)
{
    EXPECT_FALSE(takesEither(u"%"));
    EXPECT_FALSE(takesEither(u"%@ %"));
    EXPECT_FALSE(takesEither(u"%5"));
    EXPECT_FALSE(takesEither(u"%k"));
    EXPECT_FALSE(takesEither(u"%m"));
}
