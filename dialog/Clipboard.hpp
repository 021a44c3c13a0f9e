// Clipboard.hpp - a text for other programs, which stays there after this one has ended.
//
// The toolkit's pasteboards reach other programs only while a pasteboard server of its own runs.
// Plain C++ and POSIX.
#pragma once

#include <string>

namespace dialog {

// Hands the text to xclip, which keeps it on the desktop's clipboard.  Waits for that two seconds
// at the most; false when it is not installed or has no display.
bool copyToClipboard(const std::string& text);

} // namespace dialog
