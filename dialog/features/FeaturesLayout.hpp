// FeaturesLayout.hpp - where the rows of the printer's features go.
//
// Points; the origin is the upper left corner and y grows downwards.  Labels end where the labels
// of Page Settings end, so that nothing jumps when the pane changes.  Plain C++.
#pragma once

#include "dialog/Layout.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace dialog {

enum class FeatureRowKind : std::uint8_t
{
    Heading,
    PickOne,  // label and pop-up
    Switch,   // one check box that carries the title
    PickMany, // label and a column of check boxes
};

struct FeatureRow
{
    FeatureRowKind kind = FeatureRowKind::PickOne;
    double labelWidth = 0; // of the title on one line
    std::size_t boxes = 0; // of a PickMany
};

struct FeatureRowPlace
{
    Frame line;  // above a heading that is not the first; else empty
    Frame label; // empty for a Switch
    std::vector<Frame> controls;
};

struct FeaturesLayout
{
    std::vector<FeatureRowPlace> rows; // as many as were given
    double height = 0;
};

// `width` is that of the room; columns that have no place in it are made narrower, not dropped.
FeaturesLayout layOutFeatures(const std::vector<FeatureRow>& rows, double width);

} // namespace dialog
