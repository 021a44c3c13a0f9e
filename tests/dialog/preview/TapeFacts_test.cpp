#include "dialog/preview/TapeFacts.hpp"

#include "dialog/ppd/PPDFile.hpp"

#include <gtest/gtest.h>

#include <string>

namespace dialog {
namespace {

PPDFile sample(const std::string& name)
{
    Failure failure;
    PPDFile ppd = PPDFile::fromPath(std::string(SAMPLES_FOLDER "/") + name, failure);
    EXPECT_TRUE(ppd.record()) << failure.text;
    return ppd;
}

TEST(TapeFacts, AreThoseOfThePaper)
{
    const PPDFile ppd = sample("sample-tape.ppd");
    const auto tape = tapeFacts(ppd.record(), "TC12");
    ASSERT_TRUE(tape);
    // 34.016 by 283.465 points, 2.835 points blank at either edge.
    EXPECT_NEAR(tape->label.width, 12, 0.001);
    EXPECT_NEAR(tape->label.length, 100, 0.001);
    EXPECT_NEAR(tape->label.blankAbove, 1, 0.001);
    EXPECT_NEAR(tape->label.blankBelow, 1, 0.001);
    EXPECT_EQ(tape->label.margin, 0);
    EXPECT_FALSE(tape->isFixed);
}

TEST(TapeFacts, KnowADieCutLabel)
{
    const PPDFile ppd = sample("sample-tape.ppd");
    const auto tape = tapeFacts(ppd.record(), "DC24x40");
    ASSERT_TRUE(tape);
    EXPECT_TRUE(tape->isFixed);
    EXPECT_NEAR(tape->label.length, 40, 0.001);
}

TEST(TapeFacts, AreMissingWithoutPaperOrPpd)
{
    const PPDFile ppd = sample("sample-tape.ppd");
    EXPECT_FALSE(tapeFacts(ppd.record(), "TC36"));
    EXPECT_FALSE(tapeFacts(ppd.record(), ""));
    EXPECT_FALSE(tapeFacts(nullptr, "TC12"));
}

TEST(LengthRules, AreReadFromThePpd)
{
    const PPDFile ppd = sample("sample-tape-inches.ppd");
    const LengthRules rules = lengthRules(ppd.record());
    EXPECT_EQ(rules.unit, pagesettings::Unit::Inches);
    EXPECT_FALSE(rules.wholeNumbers);
    EXPECT_FLOAT_EQ(rules.limits.minLength, 12.7F);
    EXPECT_FLOAT_EQ(rules.limits.maxLength, 914.4F);
    EXPECT_FLOAT_EQ(rules.limits.minMargin, 2.54F);
    EXPECT_FLOAT_EQ(rules.limits.maxMargin, 50.8F);
}

TEST(LengthRules, KnowWholeNumbers)
{
    const PPDFile ppd = sample("sample-tape-whole.ppd");
    EXPECT_TRUE(lengthRules(ppd.record()).wholeNumbers);
}

TEST(LengthRules, AreNoughtWhereThePpdSaysNothing)
{
    const PPDFile ppd = sample("sample-tape-none.ppd");
    for (ppd_file_t* const record : {ppd.record(), static_cast<ppd_file_t*>(nullptr)}) {
        const LengthRules rules = lengthRules(record);
        EXPECT_EQ(rules.unit, pagesettings::Unit::Millimetres);
        EXPECT_EQ(rules.limits.minLength, 0);
        EXPECT_EQ(rules.limits.maxLength, 0);
        EXPECT_EQ(rules.limits.minMargin, 0);
        EXPECT_EQ(rules.limits.maxMargin, 0);
    }
}

} // namespace
} // namespace dialog
