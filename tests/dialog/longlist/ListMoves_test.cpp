#include "dialog/longlist/ListMoves.hpp"

#include <gtest/gtest.h>

using dialog::ListKey;
using dialog::moved;
using dialog::Rows;
using dialog::rowsWithin;

TEST(ListMoves, ArrowsGoOneRowAndStopAtTheEnds)
{
    EXPECT_EQ(moved(5, ListKey::Up, 10, 100), 4u);
    EXPECT_EQ(moved(0, ListKey::Up, 10, 100), 0u);
    EXPECT_EQ(moved(5, ListKey::Down, 10, 100), 6u);
    EXPECT_EQ(moved(99, ListKey::Down, 10, 100), 99u);
}

TEST(ListMoves, PagesKeepOneRowInSight)
{
    EXPECT_EQ(moved(50, ListKey::PageDown, 14, 100), 63u);
    EXPECT_EQ(moved(50, ListKey::PageUp, 14, 100), 37u);
    EXPECT_EQ(moved(95, ListKey::PageDown, 14, 100), 99u);
    EXPECT_EQ(moved(5, ListKey::PageUp, 14, 100), 0u);
    EXPECT_EQ(moved(5, ListKey::PageDown, 1, 100), 6u) << "a page is never nothing";
    EXPECT_EQ(moved(5, ListKey::PageUp, 0, 100), 4u);
}

TEST(ListMoves, HomeAndEndGoToTheEnds)
{
    EXPECT_EQ(moved(50, ListKey::Home, 14, 100), 0u);
    EXPECT_EQ(moved(50, ListKey::End, 14, 100), 99u);
    EXPECT_EQ(moved(0, ListKey::End, 14, 1), 0u);
}

TEST(ListMoves, OnlyRowsThatTouchTheStretchAreSeen)
{
    EXPECT_EQ(rowsWithin(0, 44, 22, 100), (Rows{0, 2}));
    EXPECT_EQ(rowsWithin(1, 44, 22, 100), (Rows{0, 3}));
    EXPECT_EQ(rowsWithin(2200 - 22, 44, 22, 100), (Rows{99, 100}));
    EXPECT_EQ(rowsWithin(3000, 44, 22, 100), (Rows{100, 100}));
    EXPECT_EQ(rowsWithin(-100, 44, 22, 100), (Rows{0, 0}));
}

TEST(ListMoves, TypingGoesToTheNextTitleThatBeginsSo)
{
    const std::vector<std::string> titles = {"12 mm", "24 mm", "Wide", "wider", "24 mm long"};
    EXPECT_EQ(dialog::rowForTyping(titles, "2", 0), 1u);
    EXPECT_EQ(dialog::rowForTyping(titles, "24 mm l", 1), 4u);
    EXPECT_EQ(dialog::rowForTyping(titles, "WI", 0), 2u);
    EXPECT_EQ(dialog::rowForTyping(titles, "wider", 4), 3u) << "round the end";
    EXPECT_EQ(dialog::rowForTyping(titles, "w", 3), 3u) << "stays where it fits";
    EXPECT_EQ(dialog::rowForTyping(titles, "x", 3), 3u);
    EXPECT_EQ(dialog::rowForTyping(titles, "\xC3\xA9", 2), 2u);
}

TEST(ListMoves, TheListOpensBelowAndStaysOnTheScreen)
{
    EXPECT_EQ(dialog::listBottom(500, 300, 0, 1000), 200);
    EXPECT_EQ(dialog::listBottom(100, 300, 0, 1000), 0);
    EXPECT_EQ(dialog::listBottom(1500, 300, 0, 1000), 700);
    EXPECT_EQ(dialog::listBottom(500, 2000, 0, 1000), 0) << "a list higher than the screen";
}
