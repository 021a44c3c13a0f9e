#include "dialog/Layout.hpp"

#include <algorithm>

namespace dialog {

namespace {

constexpr double kEdge = 20;
constexpr double kRow = 24;
constexpr double kRowGap = 8;
constexpr double kLabelWidth = 120;
constexpr double kLabelHeight = 17;
constexpr double kLabelGap = 8;
constexpr double kCopiesWidth = 52;
constexpr double kStepperWidth = 16;
constexpr double kBoxInset = 12;
constexpr double kButtonWidth = 90;
constexpr double kCopyCommandWidth = 190; // for the longest of the languages
constexpr double kButtonHeight = 26;
constexpr double kMessageHeight = 30; // two lines
constexpr double kProgressHeight = 10;
constexpr double kMessageGap = 6;
constexpr double kChooserWidth = 200;
constexpr double kPopUpWidth = 300;
constexpr double kMinPaneWidth = 460;
constexpr double kMinPaneHeight = 120;
constexpr double kPreviewWidth = 300;
constexpr double kPreviewGap = 16;

Frame labelBeside(double y) noexcept
{
    return {kEdge, y + (kRow - kLabelHeight) / 2, kLabelWidth, kLabelHeight};
}

} // namespace

WindowLayout layOut(Size pane, double conflictHeight) noexcept
{
    const Size inner{std::max(pane.width, kMinPaneWidth), std::max(pane.height, kMinPaneHeight)};
    const double boxWidth = inner.width + 2 * kBoxInset;
    const double boxHeight = inner.height + 2 * kBoxInset;
    const double controls = kEdge + kLabelWidth + kLabelGap;

    WindowLayout layout;
    layout.content.width = boxWidth + kPreviewGap + kPreviewWidth + 2 * kEdge;
    const double right = layout.content.width - kEdge;

    double y = kEdge;
    layout.print = {right - kButtonWidth, y, kButtonWidth, kButtonHeight};
    layout.copyCommand = {kEdge, y, kCopyCommandWidth, kButtonHeight};
    layout.cancel = {right - 2 * kButtonWidth - kLabelGap, y, kButtonWidth, kButtonHeight};

    y += kButtonHeight + kRowGap;
    layout.message = {kEdge, y, right - kEdge, kMessageHeight};
    layout.progress = {kEdge, y, right - kEdge, kProgressHeight};

    y += kMessageHeight + kMessageGap;
    if (conflictHeight > 0) {
        layout.conflict = {kEdge, y, right - kEdge, conflictHeight};
        y += conflictHeight + kRowGap;
    }
    layout.box = {kEdge, y, boxWidth, boxHeight};
    layout.preview = {kEdge + boxWidth + kPreviewGap, y, kPreviewWidth, boxHeight};
    // A pane smaller than the room sits at the top left, where the eye begins.
    layout.pane = {kEdge + kBoxInset, y + kBoxInset + (inner.height - pane.height), pane.width,
                   pane.height};

    y += boxHeight + kRowGap + 4;
    layout.chooser = {kEdge + (boxWidth - kChooserWidth) / 2, y, kChooserWidth, kRow};

    y += kRow + kRowGap + 6;
    layout.copiesLabel = labelBeside(y);
    layout.copiesField = {controls, y + 1, kCopiesWidth, kRow - 2};
    layout.copiesStepper = {controls + kCopiesWidth + 4, y, kStepperWidth, kRow};

    y += kRow + kRowGap;
    layout.presetsLabel = labelBeside(y);
    layout.presetsPopUp = {controls, y, kPopUpWidth, kRow};

    y += kRow + kRowGap;
    layout.tapeLabel = labelBeside(y);
    layout.tapePopUp = {controls, y, kPopUpWidth, kRow};

    y += kRow + kRowGap;
    layout.printerLabel = labelBeside(y);
    layout.printerPopUp = {controls, y, kPopUpWidth, kRow};

    layout.content.height = y + kRow + kEdge;
    return layout;
}

double conflictWidth(Size pane) noexcept
{
    return layOut(pane).message.width;
}

} // namespace dialog
