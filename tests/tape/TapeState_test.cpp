#include "tape/TapeState.hpp"

#include <gtest/gtest.h>

using namespace tape;

TEST(TapeStateForPaper, KnowsALabelByTheFirstTwoLetters)
{
    EXPECT_EQ(tapeStateForPaper("DC62"), 1);
    EXPECT_EQ(tapeStateForPaper("AV62"), 1);
    EXPECT_EQ(tapeStateForPaper("DC"), 1);
    EXPECT_EQ(tapeStateForPaper("AV"), 1);
}

TEST(TapeStateForPaper, MindsTheLetterCase)
{
    EXPECT_EQ(tapeStateForPaper("dc62"), 0);
    EXPECT_EQ(tapeStateForPaper("Dc62"), 0);
    EXPECT_EQ(tapeStateForPaper("av62"), 0);
}

TEST(TapeStateForPaper, DoesNotLookFurtherIntoTheName)
{
    EXPECT_EQ(tapeStateForPaper("XDC62"), 0);
    EXPECT_EQ(tapeStateForPaper(" DC62"), 0);
    EXPECT_EQ(tapeStateForPaper("TC24AV"), 0);
}

TEST(TapeStateForPaper, TakesAShortOrMixedNameForATape)
{
    EXPECT_EQ(tapeStateForPaper(""), 0);
    EXPECT_EQ(tapeStateForPaper("D"), 0);
    EXPECT_EQ(tapeStateForPaper("A"), 0);
    EXPECT_EQ(tapeStateForPaper("DV62"), 0);
    EXPECT_EQ(tapeStateForPaper("AC62"), 0);
}
