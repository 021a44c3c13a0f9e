#include "dialog/preview/FieldValues.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dialog {
namespace {

using pagesettings::Unit;
using Texts = std::vector<std::string>;

const LengthRules kMillimetres{Unit::Millimetres, false, {10, 1000, 1, 50}};
const LengthRules kInches{Unit::Inches, false, {12.7F, 914.4F, 2.54F, 50.8F}};
const LengthRules kWhole{Unit::Millimetres, true, {10, 1000, 1, 50}};

TEST(LengthFromField, IsTheNumberInMillimetres)
{
    EXPECT_EQ(lengthFromField("62.5", kMillimetres), 62.5);
    EXPECT_EQ(lengthFromField("62", kMillimetres), 62);
    EXPECT_EQ(lengthFromField("62.", kMillimetres), 62); // a keystroke on the way
    EXPECT_EQ(lengthFromField(" 62 ", kMillimetres), 62);
}

TEST(LengthFromField, TurnsInchesIntoMillimetres)
{
    // 2 / 0.0393701
    EXPECT_NEAR(lengthFromField("2", kInches).value_or(0), 50.79997257, 1e-7);
}

TEST(LengthFromField, IsNothingForATextThatIsNoNumber)
{
    for (const char* text : {"", " ", ".", "-", "6x", "x6", "6 2", "6,2", "1e2", "inf", "nan",
                             "0x20", "6.2.1", "+62"}) {
        EXPECT_FALSE(lengthFromField(text, kMillimetres)) << text;
    }
}

TEST(LengthFromField, IsNothingOutsideTheLimits)
{
    EXPECT_FALSE(lengthFromField("9.9", kMillimetres));
    EXPECT_TRUE(lengthFromField("10", kMillimetres));
    EXPECT_TRUE(lengthFromField("1000.0", kMillimetres));
    EXPECT_FALSE(lengthFromField("1000.1", kMillimetres));
    EXPECT_FALSE(lengthFromField("-62", kMillimetres));
    // 12.7 mm are shown as 0.50 and 914.4 mm as 36.00.
    EXPECT_FALSE(lengthFromField("0.49", kInches));
    EXPECT_TRUE(lengthFromField("0.5", kInches));
    EXPECT_TRUE(lengthFromField("36.00", kInches));
    EXPECT_FALSE(lengthFromField("36.01", kInches));
}

TEST(MarginFromField, HasLimitsOfItsOwn)
{
    EXPECT_FALSE(marginFromField("0.9", kMillimetres));
    EXPECT_EQ(marginFromField("1", kMillimetres), 1);
    EXPECT_EQ(marginFromField("50", kMillimetres), 50);
    EXPECT_FALSE(marginFromField("50.1", kMillimetres));
}

TEST(FindFields, KnowsThemByWhatThePanelHasTold)
{
    const FieldPlaces places = findFields(Texts{"7", "100.0", "3.0"}, {100, 3}, kMillimetres);
    EXPECT_EQ(places.length, 1u);
    EXPECT_EQ(places.margin, 2u);
}

TEST(FindFields, DoesNotMindAMarginThatStandsAboveTheLength)
{
    const FieldPlaces places = findFields(Texts{"3.0", "100.0"}, {100, 3}, kMillimetres);
    EXPECT_EQ(places.length, 1u);
    EXPECT_EQ(places.margin, 0u);
}

TEST(FindFields, TakesTheUpperOfTwoAlikeForTheLength)
{
    const FieldPlaces places = findFields(Texts{"20.0", "20.0"}, {20, 20}, kMillimetres);
    EXPECT_EQ(places.length, 0u);
    EXPECT_EQ(places.margin, 1u);
}

TEST(FindFields, AllowsForTheRoundingOfWhatIsTold)
{
    // 3.94 inches are 100.076 mm and told as 100.1; 0.20 are 5.08 and told as 5.1.
    const FieldPlaces inches = findFields(Texts{"3.94", "0.20"}, {100.1, 5.1}, kInches);
    EXPECT_EQ(inches.length, 0u);
    EXPECT_EQ(inches.margin, 1u);
    // Whole numbers are cut or rounded up.
    EXPECT_EQ(findFields(Texts{"30.9", "3"}, {30, 3}, kWhole).length, 0u);
    EXPECT_FALSE(findFields(Texts{"30.9", "3"}, {30, 3}, kMillimetres).length);
}

TEST(FindFields, FindsNothingWhereNothingFits)
{
    const FieldPlaces places = findFields(Texts{"1", "x", ""}, {100, 3}, kMillimetres);
    EXPECT_FALSE(places.length);
    EXPECT_FALSE(places.margin);
    EXPECT_FALSE(findFields({}, {100, 3}, kMillimetres).length);
}

const FieldPlaces kPlaces{0, 1};
const LengthAndMargin kLast{100, 3};

TEST(ValuesToShow, FollowTheFields)
{
    EXPECT_EQ(valuesToShow(Texts{"62", "5"}, kPlaces, kLast, kMillimetres),
              (LengthAndMargin{62, 5}));
}

TEST(ValuesToShow, KeepTheLastOfAFieldThatIsHalfTyped)
{
    EXPECT_EQ(valuesToShow(Texts{"6", "5"}, kPlaces, kLast, kMillimetres),
              (LengthAndMargin{100, 5}));
    EXPECT_EQ(valuesToShow(Texts{"62", ""}, kPlaces, kLast, kMillimetres),
              (LengthAndMargin{62, 3}));
    EXPECT_EQ(valuesToShow(Texts{"2000", "99"}, kPlaces, kLast, kMillimetres), kLast);
}

TEST(ValuesToShow, KeepBothWhereTheMarginsWouldMeet)
{
    EXPECT_EQ(valuesToShow(Texts{"62", "31"}, kPlaces, kLast, kMillimetres),
              (LengthAndMargin{62, 31}));
    EXPECT_EQ(valuesToShow(Texts{"62", "31.1"}, kPlaces, kLast, kMillimetres), kLast);
}

TEST(ValuesToShow, AreTheLastWhereNoFieldIsKnown)
{
    EXPECT_EQ(valuesToShow(Texts{"62", "5"}, {}, kLast, kMillimetres), kLast);
    EXPECT_EQ(valuesToShow({}, kPlaces, kLast, kMillimetres), kLast);
    EXPECT_EQ(valuesToShow(Texts{"62"}, kPlaces, kLast, kMillimetres), (LengthAndMargin{62, 3}));
}

} // namespace
} // namespace dialog
