#include "pagesettings/ChoiceGrid.hpp"

#include <algorithm>
#include <cmath>
#include <functional>

namespace {

constexpr float kLinePitch = kChoiceLineHeight + kChoiceLineGap;
// More lines than any PPD has choices, and few enough for an exact conversion.
constexpr float kMostVisibleLines = 1000;

std::int32_t linesThatFit(float height) noexcept
{
    const float lines = std::floor((height + kChoiceLineGap) / kLinePitch);
    if (!(lines >= 1))
        return 1;
    return static_cast<std::int32_t>(std::min(lines, kMostVisibleLines));
}

std::int32_t hiddenLines(const ChoiceGrid& grid) noexcept
{
    return std::max(0, grid.lines - grid.visibleLines);
}

// Not every wish can be met: the modest columns get theirs, the others share what is left.
void shareTooLittle(ChoiceGrid& grid, float usable, const ColumnWishes& wishes) noexcept
{
    std::array<std::int32_t, kMostColumns> byWish{0, 1, 2};
    std::sort(byWish.begin(), byWish.begin() + grid.columns,
              [&](std::int32_t a, std::int32_t b) { return wishes[a] < wishes[b]; });
    float left = usable;
    for (std::int32_t place = 0; place < grid.columns; ++place) {
        const std::int32_t column = byWish[place];
        const float share = std::floor(left / static_cast<float>(grid.columns - place));
        grid.columnWidth[column] = std::min(wishes[column], share);
        left -= grid.columnWidth[column];
    }
}

void shareWidth(ChoiceGrid& grid, float width, const ColumnWishes& wishes) noexcept
{
    const auto columns = static_cast<float>(grid.columns);
    const float usable = std::max(0.0f, width - kChoiceColumnGap * (columns - 1));
    const float evenShare = std::floor(usable / columns);

    float wished = 0;
    bool evenlyFits = true;
    for (std::int32_t column = 0; column < grid.columns; ++column) {
        wished += wishes[column];
        evenlyFits = evenlyFits && wishes[column] <= evenShare;
    }

    grid.columnWidth.fill(evenShare);
    if (!evenlyFits && wished <= usable) {
        const float spare = std::floor((usable - wished) / columns);
        for (std::int32_t column = 0; column < grid.columns; ++column)
            grid.columnWidth[column] = wishes[column] + spare;
    } else if (!evenlyFits) {
        shareTooLittle(grid, usable, wishes);
    }

    float x = 0;
    for (std::int32_t column = 0; column < grid.columns; ++column) {
        grid.columnX[column] = x;
        x += grid.columnWidth[column] + kChoiceColumnGap;
    }
}

} // namespace

std::int32_t columnsForChoices(std::int32_t count) noexcept
{
    return count <= 2 ? 1 : count <= 4 ? 2 : kMostColumns;
}

ChoiceGrid layOutChoices(std::int32_t count, float width, float height, std::int32_t firstLine,
                         const ColumnWishes& wishes) noexcept
{
    ChoiceGrid grid;
    grid.count = std::max(0, count);
    grid.columns = columnsForChoices(grid.count);
    grid.lines = grid.count / grid.columns + (grid.count % grid.columns != 0 ? 1 : 0);
    grid.visibleLines = linesThatFit(height);
    grid.scrolls = grid.lines > grid.visibleLines;
    grid.firstLine = clampedFirstLine(grid, firstLine);
    shareWidth(grid, grid.scrolls ? width - kChoiceScrollerWidth - kChoiceScrollerGap : width,
               wishes);
    return grid;
}

bool meetsWishes(const ChoiceGrid& grid, const ColumnWishes& wishes) noexcept
{
    return std::equal(wishes.begin(), wishes.begin() + grid.columns, grid.columnWidth.begin(),
                      std::less_equal<>());
}

ChoiceFrame frameOfChoice(const ChoiceGrid& grid, std::int32_t index) noexcept
{
    if (index < 0 || index >= grid.count)
        return {};
    const std::int32_t column = index % grid.columns;
    const std::int32_t line = index / grid.columns - grid.firstLine;
    return {grid.columnX[column], static_cast<float>(line) * kLinePitch, grid.columnWidth[column],
            kChoiceLineHeight};
}

ChoiceFrame frameOfScroller(const ChoiceGrid& grid, float width, float height) noexcept
{
    if (!grid.scrolls)
        return {};
    return {width - kChoiceScrollerWidth, 0, kChoiceScrollerWidth, height};
}

std::int32_t firstVisibleChoice(const ChoiceGrid& grid) noexcept
{
    return grid.firstLine * grid.columns;
}

std::int32_t endOfVisibleChoices(const ChoiceGrid& grid) noexcept
{
    const std::int32_t first = firstVisibleChoice(grid);
    return first + std::min(grid.count - first, grid.visibleLines * grid.columns);
}

bool isChoiceVisible(const ChoiceGrid& grid, std::int32_t index) noexcept
{
    return index >= firstVisibleChoice(grid) && index < endOfVisibleChoices(grid);
}

std::int32_t choiceAt(const ChoiceGrid& grid, float x, float y) noexcept
{
    const std::int32_t end = endOfVisibleChoices(grid);
    for (std::int32_t index = firstVisibleChoice(grid); index < end; ++index) {
        const ChoiceFrame frame = frameOfChoice(grid, index);
        if (x >= frame.x && x < frame.x + frame.width && y >= frame.y && y < frame.y + frame.height)
            return index;
    }
    return kNoChoice;
}

std::int32_t firstLineShowing(const ChoiceGrid& grid, std::int32_t index) noexcept
{
    if (index < 0 || index >= grid.count)
        return grid.firstLine;
    const std::int32_t line = index / grid.columns;
    if (line < grid.firstLine)
        return line;
    if (line >= grid.firstLine + grid.visibleLines)
        return line - grid.visibleLines + 1;
    return grid.firstLine;
}

std::int32_t clampedFirstLine(const ChoiceGrid& grid, std::int32_t firstLine) noexcept
{
    return std::clamp(firstLine, 0, hiddenLines(grid));
}

std::int32_t choiceAfterMove(const ChoiceGrid& grid, std::int32_t index, ChoiceMove move) noexcept
{
    if (grid.count <= 0)
        return kNoChoice;
    if (index < 0 || index >= grid.count)
        return 0;
    if (move == ChoiceMove::Stay)
        return index;
    const std::int32_t last = grid.count - 1;
    if (move == ChoiceMove::Left)
        return std::max(0, index - 1);
    if (move == ChoiceMove::Right)
        return std::min(last, index + 1);
    if (move == ChoiceMove::Up)
        return index >= grid.columns ? index - grid.columns : index;
    // From above the empty places of the last line, down leads to the last choice.
    if (index / grid.columns >= grid.lines - 1)
        return index;
    return last - index > grid.columns ? index + grid.columns : last;
}

float scrollerValue(const ChoiceGrid& grid) noexcept
{
    const std::int32_t hidden = hiddenLines(grid);
    return hidden > 0 ? static_cast<float>(grid.firstLine) / static_cast<float>(hidden) : 0.0f;
}

float scrollerKnob(const ChoiceGrid& grid) noexcept
{
    return grid.scrolls ? static_cast<float>(grid.visibleLines) / static_cast<float>(grid.lines)
                        : 1.0f;
}

std::int32_t firstLineAtScrollerValue(const ChoiceGrid& grid, float value) noexcept
{
    if (!(value > 0))
        return 0;
    const std::int32_t hidden = hiddenLines(grid);
    if (value >= 1)
        return hidden;
    return static_cast<std::int32_t>(std::lround(value * static_cast<float>(hidden)));
}
