#include "dialog/features/FeaturesLayout.hpp"

#include <algorithm>

namespace dialog {

namespace {

constexpr double kTop = 12;
constexpr double kBottom = 12;
constexpr double kSide = 20;
constexpr double kLabelEnd = 180;
constexpr double kGap = 10;
constexpr double kPopUpWidth = 280;
constexpr double kPopUpHeight = 24;
constexpr double kBoxHeight = 20;
constexpr double kLine = 16; // of text
constexpr double kHeadingHeight = 18;
constexpr double kRowGap = 8;
constexpr double kBoxGap = 3;
constexpr double kAboveHeading = 8;
constexpr double kLineHeight = 5; // the room that the toolkit draws a thin line in

// Beside the first line of a control of that height; a title too long for one line takes two.
Frame label(const FeatureRow& row, double y, double controlHeight) noexcept
{
    const double width = kLabelEnd - kSide;
    const bool wraps = row.labelWidth > width;
    return {kSide, y + (controlHeight - kLine) / 2, width, wraps ? 2 * kLine : kLine};
}

double bottom(const Frame& frame) noexcept
{
    return frame.y + frame.height;
}

} // namespace

FeaturesLayout layOutFeatures(const std::vector<FeatureRow>& rows, double width)
{
    const double controls = kLabelEnd + kGap;
    const double room = std::max(width - controls - kSide, 40.0);
    FeaturesLayout layout;
    double y = kTop;
    for (const FeatureRow& row : rows) {
        FeatureRowPlace place;
        switch (row.kind) {
        case FeatureRowKind::Heading:
            if (!layout.rows.empty()) {
                y += kAboveHeading;
                place.line = {kSide, y - (kAboveHeading + kLineHeight) / 2,
                              std::max(width - 2 * kSide, 0.0), kLineHeight};
                y += kAboveHeading;
            }
            place.label = {kSide, y, std::max(width - 2 * kSide, 0.0), kHeadingHeight};
            y += kHeadingHeight + kRowGap;
            break;
        case FeatureRowKind::PickOne:
            place.label = label(row, y, kPopUpHeight);
            place.controls.push_back({controls, y, std::min(kPopUpWidth, room), kPopUpHeight});
            y = std::max(y + kPopUpHeight, bottom(place.label)) + kRowGap;
            break;
        case FeatureRowKind::Switch:
            place.controls.push_back({controls, y, room, kBoxHeight});
            y += kBoxHeight + kRowGap;
            break;
        case FeatureRowKind::PickMany:
            place.label = label(row, y, kBoxHeight);
            for (std::size_t i = 0; i < row.boxes; ++i) {
                place.controls.push_back({controls, y, room, kBoxHeight});
                y += kBoxHeight + kBoxGap;
            }
            y = std::max(y - kBoxGap, bottom(place.label)) + kRowGap;
            break;
        }
        layout.rows.push_back(std::move(place));
    }
    layout.height = y - (rows.empty() ? 0 : kRowGap) + kBottom;
    return layout;
}

} // namespace dialog
