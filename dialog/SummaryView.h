// SummaryView.h - a summary for the eye: titles to the right, values to the left of one line.
#pragma once

#include "dialog/SummaryLines.hpp"

#include <AppKit/AppKit.h>

namespace dialog {

// A scrolling view of the given size.  Autoreleased.
NSView* summaryView(const std::vector<SummaryLine>& lines, NSString* title, NSSize size);

} // namespace dialog
