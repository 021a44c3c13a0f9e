// ChoiceGrid.hpp - where the choices of one radio group stand.
//
// A group has a slot of two lines, whatever the number of choices in the PPD: one or two stand in
// one column, three or four in two columns, more in three, line by line from the left.  What does
// not fit in the two lines is scrolled line by line, with a scroller at the right edge.
//
//     const ChoiceGrid grid = layOutChoices(5, 350, 43, 0, {});
//     frameOfChoice(grid, 4);        // second line, second column
//
// Points, y growing downwards from the top of the slot.  Not here: fonts, titles, drawing.
// Plain C++.
#pragma once

#include <array>
#include <cstdint>

inline constexpr std::int32_t kMostColumns = 3;
inline constexpr std::int32_t kNoChoice = -1;
inline constexpr float kChoiceLineHeight = 20;
inline constexpr float kChoiceLineGap = 3;
inline constexpr float kChoiceColumnGap = 4;
inline constexpr float kChoiceScrollerWidth = 18;
inline constexpr float kChoiceScrollerGap = 4;

// The width that a column's titles would like, 0 where it does not matter.
using ColumnWishes = std::array<float, kMostColumns>;

struct ChoiceFrame
{
    float x = 0;
    float y = 0;
    float width = 0;
    float height = 0;

    bool operator==(const ChoiceFrame&) const = default;
};

struct ChoiceGrid
{
    std::int32_t count = 0;
    std::int32_t columns = 1;      // 1 to kMostColumns
    std::int32_t lines = 0;        // all of them, seen or not
    std::int32_t visibleLines = 1; // 1 or more
    std::int32_t firstLine = 0;    // the topmost line seen, 0 to lines - visibleLines
    bool scrolls = false;
    std::array<float, kMostColumns> columnX{};
    std::array<float, kMostColumns> columnWidth{};
};

enum class ChoiceMove
{
    Up,
    Down,
    Left,
    Right,
    Stay
};

std::int32_t columnsForChoices(std::int32_t count) noexcept;

// A negative count is none; a first line out of range is brought into it; a slot lower than a line
// still shows one.  The columns share the width evenly where every wish fits its share, else by
// their wishes; where the width is too small for all of these, the most demanding columns give way.
ChoiceGrid layOutChoices(std::int32_t count, float width, float height, std::int32_t firstLine,
                         const ColumnWishes& wishes) noexcept;

// Whether every column is as wide as its titles would like.
bool meetsWishes(const ChoiceGrid& grid, const ColumnWishes& wishes) noexcept;

// A choice scrolled out of sight has a frame above or below the slot; an index that does not exist
// has an empty one.
ChoiceFrame frameOfChoice(const ChoiceGrid& grid, std::int32_t index) noexcept;

// Where the scroller stands; empty when there is none.
ChoiceFrame frameOfScroller(const ChoiceGrid& grid, float width, float height) noexcept;

// The choices seen are those from the first up to, not including, the end.
std::int32_t firstVisibleChoice(const ChoiceGrid& grid) noexcept;
std::int32_t endOfVisibleChoices(const ChoiceGrid& grid) noexcept;
bool isChoiceVisible(const ChoiceGrid& grid, std::int32_t index) noexcept;

// kNoChoice in the gaps, beside the last choice, on the scroller and outside the slot.
std::int32_t choiceAt(const ChoiceGrid& grid, float x, float y) noexcept;

// The first line to show so that the choice is seen, moving as little as possible.
std::int32_t firstLineShowing(const ChoiceGrid& grid, std::int32_t index) noexcept;

std::int32_t clampedFirstLine(const ChoiceGrid& grid, std::int32_t firstLine) noexcept;

// The choice that a key leads to: the same one at an edge, the first when there is none yet,
// kNoChoice in an empty group.  Left and right run on through the lines.
std::int32_t choiceAfterMove(const ChoiceGrid& grid, std::int32_t index, ChoiceMove move) noexcept;

// The scroller's value (0 at the top, 1 at the bottom), its knob's share of the height, and back.
float scrollerValue(const ChoiceGrid& grid) noexcept;
float scrollerKnob(const ChoiceGrid& grid) noexcept;
std::int32_t firstLineAtScrollerValue(const ChoiceGrid& grid, float value) noexcept;
