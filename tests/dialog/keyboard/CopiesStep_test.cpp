#include "dialog/keyboard/CopiesStep.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

TEST(SteppedCopies, AreOneMoreOrOneLess)
{
    EXPECT_EQ(steppedCopies("1", 1), "2");
    EXPECT_EQ(steppedCopies(" 9 ", 1), "10");
    EXPECT_EQ(steppedCopies("10", -1), "9");
}

TEST(SteppedCopies, StayWithinWhatCanBePrinted)
{
    EXPECT_EQ(steppedCopies("1", -1), "1");
    EXPECT_EQ(steppedCopies("999", 1), "999");
    EXPECT_EQ(steppedCopies("998", 1), "999");
}

TEST(SteppedCopies, BeginAtOneWhereThereIsNoNumber)
{
    EXPECT_EQ(steppedCopies("", 1), "1");
    EXPECT_EQ(steppedCopies("many", -1), "1");
    EXPECT_EQ(steppedCopies("1000000000000", 1), "1");
}

} // namespace
} // namespace dialog
