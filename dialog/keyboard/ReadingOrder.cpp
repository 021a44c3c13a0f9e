#include "dialog/keyboard/ReadingOrder.hpp"

#include <algorithm>
#include <numeric>

namespace dialog {

namespace {

constexpr double kSameRow = 8;

double top(const Frame& frame) noexcept
{
    return frame.y + frame.height;
}

} // namespace

std::vector<std::size_t> readingOrder(const std::vector<Frame>& frames)
{
    std::vector<std::size_t> order(frames.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(), [&](std::size_t one, std::size_t other) {
        return top(frames[one]) > top(frames[other]);
    });
    // Row by row: a comparison with a tolerance would be no order.
    for (auto row = order.begin(); row != order.end();) {
        const double first = top(frames[*row]);
        const auto end = std::find_if(row, order.end(), [&](std::size_t index) {
            return first - top(frames[index]) >= kSameRow;
        });
        std::stable_sort(row, end, [&](std::size_t one, std::size_t other) {
            return frames[one].x < frames[other].x;
        });
        row = end;
    }
    return order;
}

} // namespace dialog
