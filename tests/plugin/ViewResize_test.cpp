#include "plugin/ViewResize.hpp"

#include <gtest/gtest.h>

using plugin::windowHoldsView;

TEST(WindowHoldsView, NeedsMoreThanNinetySixPointsAboveTheView)
{
    EXPECT_FALSE(windowHoldsView(395, 300));
    EXPECT_FALSE(windowHoldsView(396, 300));
    EXPECT_TRUE(windowHoldsView(396.5, 300));
    EXPECT_TRUE(windowHoldsView(500, 300));
}

TEST(WindowHoldsView, HoldsAnEmptyViewBesideItsOwnFrame)
{
    EXPECT_FALSE(windowHoldsView(96, 0));
    EXPECT_TRUE(windowHoldsView(97, 0));
}

TEST(WindowHoldsView, IsNotMisledByANegativeHeight)
{
    EXPECT_TRUE(windowHoldsView(100, -100));
    EXPECT_FALSE(windowHoldsView(-100, 0));
}
