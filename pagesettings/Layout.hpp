// Layout.hpp - which choice rows the panel shows and where they stand.
//
// Points; y grows upwards from the panel's bottom edge.  Rows stand bottom up: compression,
// resolution, quality; the print mode row keeps its distance from the top.  Plain C++.
#pragma once

#include <cstddef>
#include <optional>

namespace pagesettings {

// What the PPD offers; no count means that it lacks the option.
struct OfferedChoices
{
    std::optional<std::size_t> quality;
    std::optional<std::size_t> resolution;
    std::optional<std::size_t> compress;
    std::optional<std::size_t> printMode;
};

struct RowPlace
{
    double controlY = 0;
    double labelY = 0;
};

struct PanelLayout
{
    bool showsQuality = true;
    bool showsResolution = true;
    bool showsCompress = true;
    bool showsPrintMode = true;
    double heightReduction = 0;
    // None: the row stays where the interface file has it.
    std::optional<RowPlace> compress;
    std::optional<RowPlace> resolution;
    std::optional<RowPlace> quality;
    bool removesSeparator = false;
};

// `compressWidth` is the width of the compression matrix; none when the view has no such matrix.
PanelLayout layoutFor(const OfferedChoices& offered, std::optional<double> compressWidth) noexcept;

} // namespace pagesettings
