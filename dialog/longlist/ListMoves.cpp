#include "dialog/longlist/ListMoves.hpp"

#include <algorithm>
#include <cmath>

namespace dialog {

namespace {

char lowered(char c) noexcept
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool beginsWith(std::string_view text, std::string_view begin) noexcept
{
    return text.size() >= begin.size() &&
           std::equal(begin.begin(), begin.end(), text.begin(),
                      [](char one, char other) { return lowered(one) == lowered(other); });
}

} // namespace

std::size_t moved(std::size_t row, ListKey key, std::size_t page, std::size_t count) noexcept
{
    const std::size_t last = count - 1;
    // A page keeps one row in sight, so that the eye finds its place.
    const std::size_t leap = std::max<std::size_t>(page, 2) - 1;
    switch (key) {
    case ListKey::Up:
        return row - std::min<std::size_t>(row, 1);
    case ListKey::Down:
        return std::min(row + 1, last);
    case ListKey::PageUp:
        return row - std::min(row, leap);
    case ListKey::PageDown:
        return std::min(row + leap, last);
    case ListKey::Home:
        return 0;
    case ListKey::End:
        break;
    }
    return last;
}

Rows rowsWithin(double top, double height, double rowHeight, std::size_t count) noexcept
{
    const auto all = static_cast<double>(count);
    const double first = std::clamp(std::floor(top / rowHeight), 0.0, all);
    const double end = std::clamp(std::ceil((top + height) / rowHeight), first, all);
    return {static_cast<std::size_t>(first), static_cast<std::size_t>(end)};
}

std::size_t rowForTyping(const std::vector<std::string>& titles, std::string_view typed,
                         std::size_t row) noexcept
{
    for (std::size_t step = 0; step < titles.size(); ++step) {
        const std::size_t candidate = (row + step) % titles.size();
        if (beginsWith(titles[candidate], typed)) {
            return candidate;
        }
    }
    return row;
}

double listBottom(double controlBottom, double listHeight, double low, double high) noexcept
{
    const double below = controlBottom - listHeight;
    return std::max(std::min(std::max(below, low), high - listHeight), low);
}

} // namespace dialog
