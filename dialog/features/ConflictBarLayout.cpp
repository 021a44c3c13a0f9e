#include "dialog/features/ConflictBarLayout.hpp"

#include <algorithm>

namespace dialog {

namespace {

constexpr double kAroundTitle = 28;
constexpr double kButtonHeight = 26;
constexpr double kGap = 10;
constexpr double kLeastHeight = 34;
constexpr double kMostHeight = 66;

} // namespace

ConflictBarLayout layOutConflictBar(Size bar, double titleWidth) noexcept
{
    if (titleWidth <= 0) {
        return {{0, 0, bar.width, bar.height}, {}};
    }
    const double width = std::min(titleWidth + kAroundTitle, bar.width * 3 / 5);
    return {{0, 0, std::max(bar.width - width - kGap, 0.0), bar.height},
            {bar.width - width, (bar.height - kButtonHeight) / 2, width, kButtonHeight}};
}

Frame sentenceInTheMiddle(const Frame& place, double textHeight) noexcept
{
    const double height = std::min(textHeight, place.height);
    return {place.x, place.y + (place.height - height) / 2, place.width, height};
}

double conflictBarHeight(double textHeight) noexcept
{
    return std::clamp(textHeight, kLeastHeight, kMostHeight);
}

} // namespace dialog
