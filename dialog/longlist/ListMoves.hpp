// ListMoves.hpp - what keys do in an open list, and which of its rows are seen.  Plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

enum class ListKey : std::uint8_t
{
    Up,
    Down,
    PageUp,
    PageDown,
    Home,
    End,
};

// The row that the key leads to from `row`; never past either end.  `page` is how many rows are
// seen, `count` how many there are, at least one.
std::size_t moved(std::size_t row, ListKey key, std::size_t page, std::size_t count) noexcept;

// The rows that touch the stretch from `top`, `height` long, in a list from the top down.
struct Rows
{
    std::size_t first = 0;
    std::size_t end = 0; // one past the last

    bool operator==(const Rows&) const = default;
};
Rows rowsWithin(double top, double height, double rowHeight, std::size_t count) noexcept;

// The row whose title begins with what was typed, in any case of ASCII letters: `row` itself or the
// next after it, going round; `row` when there is none.
std::size_t rowForTyping(const std::vector<std::string>& titles, std::string_view typed,
                         std::size_t row) noexcept;

// Where the list opens, in one dimension of the screen: below the control, moved so that it stays
// between `low` and `high`.  Points, y growing upwards; answers the list's lower edge.
double listBottom(double controlBottom, double listHeight, double low, double high) noexcept;

} // namespace dialog
