#include "dialog/toolkit/FrameWidths.hpp"

namespace dialog {

namespace {

// The numbers are those of X11/X.h.
constexpr int kKeyPress = 2;
constexpr int kKeyRelease = 3;
constexpr int kButtonPress = 4;
constexpr int kLeaveNotify = 8; // after ButtonRelease, MotionNotify and EnterNotify
constexpr int kVisibilityNotify = 15;
// From here on the extensions have theirs: pictures that have arrived, keyboards, screens.
constexpr int kFirstOfExtensions = 64;

// Windows come and go; who has more than this open does not wait for frames.
constexpr std::size_t kMostKept = 32;

} // namespace

bool leavesFrames(int eventType) noexcept
{
    return (eventType >= kKeyPress && eventType <= kVisibilityNotify) ||
           eventType >= kFirstOfExtensions;
}

bool isTypingAfter(int eventType, bool before) noexcept
{
    if (eventType == kKeyPress || eventType == kKeyRelease) {
        return true;
    }
    return before && (eventType < kButtonPress || eventType > kLeaveNotify);
}

const FrameWidths* FrameWidthsKept::find(unsigned long window, unsigned int style) const noexcept
{
    if (!isInUse_) {
        return nullptr;
    }
    for (const Entry& entry : entries_) {
        if (entry.window == window && entry.style == style) {
            return &entry.widths;
        }
    }
    return nullptr;
}

void FrameWidthsKept::keep(unsigned long window, unsigned int style, const FrameWidths& widths)
{
    if (window == 0) {
        return;
    }
    for (Entry& entry : entries_) {
        if (entry.window == window && entry.style == style) {
            entry.widths = widths;
            return;
        }
    }
    if (entries_.size() == kMostKept) {
        entries_.clear();
    }
    entries_.push_back({window, style, widths});
}

void FrameWidthsKept::eventCame(int eventType) noexcept
{
    if (!leavesFrames(eventType)) {
        entries_.clear();
    }
}

} // namespace dialog
