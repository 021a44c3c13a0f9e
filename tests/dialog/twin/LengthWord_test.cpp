#include "dialog/twin/LengthWord.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

using pagesettings::Unit;

TEST(LengthWord, IsANumberWithAUnitOrWithout)
{
    EXPECT_EQ(parseLength("40"), (LengthWord{"40", {}}));
    EXPECT_EQ(parseLength("40.5mm"), (LengthWord{"40.5", Unit::Millimetres}));
    EXPECT_EQ(parseLength("40.5 mm"), (LengthWord{"40.5", Unit::Millimetres}));
    EXPECT_EQ(parseLength("1.5in"), (LengthWord{"1.5", Unit::Inches}));
    EXPECT_EQ(parseLength("1.5 inch"), (LengthWord{"1.5", Unit::Inches}));
    EXPECT_EQ(parseLength("2\""), (LengthWord{"2", Unit::Inches}));
    EXPECT_EQ(parseLength(".5"), (LengthWord{".5", {}}));
    EXPECT_EQ(parseLength("7."), (LengthWord{"7.", {}}));
    EXPECT_EQ(parseLength("0"), (LengthWord{"0", {}}));
}

TEST(LengthWord, IsNothingElse)
{
    for (const char* text : {"",    " ",    ".",     "mm",    "-3",
                             "+3",  "1,5",  "1.2.3", "1e3",   "inf",
                             "nan", "0x10", "40cm",  "40 MM", "40mm ",
                             " 40", "40 ",  "4 0",   "40mm2", "1234567890123456789012345678901"}) {
        EXPECT_FALSE(parseLength(text)) << text;
    }
}

TEST(LengthWord, IsTypedAsGivenInItsOwnUnitAndConvertedElsewhere)
{
    EXPECT_EQ(typedText({"040.50", {}}, Unit::Inches), "040.50");
    EXPECT_EQ(typedText({"040.50", Unit::Millimetres}, Unit::Millimetres), "040.50");
    // By the panel's factor, 0.0393701.
    EXPECT_NEAR(std::stod(typedText({"100", Unit::Millimetres}, Unit::Inches)), 3.93701, 1e-9);
    EXPECT_NEAR(std::stod(typedText({"1", Unit::Inches}, Unit::Millimetres)), 25.39998629, 1e-8);
}

TEST(LengthWord, IsShownWithTheUnitThatCounts)
{
    EXPECT_EQ(shownLength({"500", {}}, Unit::Millimetres), "500 mm");
    EXPECT_EQ(shownLength({"1.5", {}}, Unit::Inches), "1.5 in");
    EXPECT_EQ(shownLength({"500", Unit::Millimetres}, Unit::Inches), "500 mm");
}

} // namespace
} // namespace dialog
