#include "pagesettings/Layout.hpp"

#include <cmath>

namespace pagesettings {

static constexpr double kWideMatrix = 350; // wider than this the label stands above the matrix
static constexpr double kBottom = 20;
static constexpr double kRowPitch = 48;
static constexpr double kLabelOverControl = 23;
static constexpr double kPrintModePitch = 34;

static constexpr double kWideCompressPitch = 69;
static constexpr double kWideCompressLabelY = 64;
static constexpr double kWideCompressNextRow = 14; // above the label
static constexpr double kCompressLabelY = 43;
static constexpr double kCompressNextRowY = 68;

PanelLayout layoutFor(const OfferedChoices& offered, std::optional<double> compressWidth) noexcept
{
    PanelLayout layout;
    const bool wide = compressWidth.value_or(0) > kWideMatrix;

    layout.showsCompress = offered.compress.has_value();
    if (!layout.showsCompress)
        layout.heightReduction += wide ? kWideCompressPitch : kRowPitch;
    // A single resolution is no choice, and print mode settles the resolution.
    layout.showsResolution = offered.resolution && *offered.resolution != 1 && !offered.printMode;
    if (!layout.showsResolution)
        layout.heightReduction += kRowPitch;
    layout.showsQuality = offered.quality.has_value();
    if (!layout.showsQuality)
        layout.heightReduction += kRowPitch;
    layout.showsPrintMode = offered.printMode.has_value();
    if (!layout.showsPrintMode)
        layout.heightReduction += kPrintModePitch;

    double base = kBottom;
    if (offered.compress) {
        const double labelY = wide ? kWideCompressLabelY : kCompressLabelY;
        layout.compress = RowPlace{base, labelY};
        base = wide ? labelY + kWideCompressNextRow : kCompressNextRowY;
    }
    if (offered.resolution.value_or(0) >= 2 && !offered.printMode) {
        layout.resolution = RowPlace{base, base + kLabelOverControl};
        base = std::trunc(base + kRowPitch);
    }
    if (offered.quality)
        layout.quality = RowPlace{base, base + kLabelOverControl};

    layout.removesSeparator = !offered.quality && offered.resolution.value_or(1) == 1 &&
                              !offered.compress && !offered.printMode;
    return layout;
}

} // namespace pagesettings
