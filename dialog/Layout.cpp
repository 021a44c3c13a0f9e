#include "dialog/Layout.hpp"

#include <algorithm>
#include <cmath>

namespace dialog {

namespace {

constexpr double kEdge = 20;
constexpr double kRow = 24;
constexpr double kRowGap = 8;
constexpr double kMinLabelWidth = 120;
constexpr double kMaxLabelWidth = 300;
constexpr double kAroundLabel = 6; // what a field keeps free at both sides of its text
constexpr double kLabelHeight = 17;
constexpr double kLabelGap = 8;
constexpr double kCopiesWidth = 52;
constexpr double kStepperWidth = 16;
constexpr double kBoxInset = 12;
constexpr double kMinButtonWidth = 90;
constexpr double kMaxButtonWidth = 240;
constexpr double kMinCopyCommandWidth = 190;
constexpr double kMaxCopyCommandWidth = 280;
constexpr double kAroundTitle = 20;
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

Frame labelBeside(double y, double width) noexcept
{
    return {kEdge, y + (kRow - kLabelHeight) / 2, width, kLabelHeight};
}

// Whole points, so that no edge is drawn between two pixels.
double roomFor(double word, double least, double most) noexcept
{
    return std::clamp(std::ceil(word), least, most);
}

} // namespace

WindowLayout layOut(Size pane, const WordWidths& words, double conflictHeight) noexcept
{
    const double labelWidth = roomFor(words.labels + kAroundLabel, kMinLabelWidth, kMaxLabelWidth);
    const double button = buttonWidth(words.buttons, kMaxButtonWidth);
    const Size inner{std::max(pane.width, kMinPaneWidth), std::max(pane.height, kMinPaneHeight)};
    const double boxWidth = inner.width + 2 * kBoxInset;
    const double boxHeight = inner.height + 2 * kBoxInset;
    const double controls = kEdge + labelWidth + kLabelGap;

    WindowLayout layout;
    layout.content.width = boxWidth + kPreviewGap + kPreviewWidth + 2 * kEdge;
    const double right = layout.content.width - kEdge;

    double y = kEdge;
    layout.print = {right - button, y, button, kButtonHeight};
    layout.cancel = {right - 2 * button - kLabelGap, y, button, kButtonHeight};
    layout.copyCommand = {
        kEdge, y,
        roomFor(words.copyCommand + kAroundTitle, kMinCopyCommandWidth, kMaxCopyCommandWidth),
        kButtonHeight};

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
    layout.copiesLabel = labelBeside(y, labelWidth);
    layout.copiesField = {controls, y + 1, kCopiesWidth, kRow - 2};
    layout.copiesStepper = {controls + kCopiesWidth + 4, y, kStepperWidth, kRow};

    y += kRow + kRowGap;
    layout.presetsLabel = labelBeside(y, labelWidth);
    layout.presetsPopUp = {controls, y, kPopUpWidth, kRow};

    y += kRow + kRowGap;
    layout.tapeLabel = labelBeside(y, labelWidth);
    layout.tapePopUp = {controls, y, kPopUpWidth, kRow};

    y += kRow + kRowGap;
    layout.printerLabel = labelBeside(y, labelWidth);
    layout.printerPopUp = {controls, y, kPopUpWidth, kRow};

    layout.content.height = y + kRow + kEdge;
    return layout;
}

double conflictWidth(Size pane) noexcept
{
    return layOut(pane).message.width;
}

double buttonWidth(double title, double most) noexcept
{
    return roomFor(title + kAroundTitle, kMinButtonWidth, most);
}

} // namespace dialog
