#include "platform/PageRange.hpp"

#include <gtest/gtest.h>

using printing::kAllPages;
using printing::PageRange;

TEST(PageRange, IsAllPagesAtFirst)
{
    const PageRange pages;
    EXPECT_EQ(pages.first(), 1u);
    EXPECT_EQ(pages.last(), 4294967295u);
    EXPECT_EQ(kAllPages, 4294967295u);
}

TEST(PageRange, TakesASinglePage)
{
    PageRange pages;
    EXPECT_TRUE(pages.setFirst(3));
    EXPECT_TRUE(pages.setLast(3));
    EXPECT_EQ(pages.first(), 3u);
    EXPECT_EQ(pages.last(), 3u);
    PageRange first;
    EXPECT_TRUE(first.setLast(1));
    EXPECT_EQ(first.last(), 1u);
}

TEST(PageRange, RefusesPageZero)
{
    PageRange pages;
    EXPECT_FALSE(pages.setFirst(0));
    EXPECT_FALSE(pages.setLast(0));
    EXPECT_EQ(pages.first(), 1u);
    EXPECT_EQ(pages.last(), kAllPages);
}

TEST(PageRange, RefusesAFirstPageAfterTheLast)
{
    PageRange pages;
    ASSERT_TRUE(pages.setLast(5));
    EXPECT_FALSE(pages.setFirst(6));
    EXPECT_EQ(pages.first(), 1u);
    EXPECT_TRUE(pages.setFirst(5));
    EXPECT_FALSE(pages.setLast(4));
    EXPECT_EQ(pages.last(), 5u);
}

TEST(PageRange, OpensAgainToAllPages)
{
    PageRange pages;
    ASSERT_TRUE(pages.setFirst(2));
    ASSERT_TRUE(pages.setLast(2));
    EXPECT_TRUE(pages.setLast(kAllPages));
    EXPECT_EQ(pages.last(), kAllPages);
}
