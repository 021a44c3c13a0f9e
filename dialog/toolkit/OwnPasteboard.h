// OwnPasteboard.h - copy and paste that never keeps the window waiting.
//
// A text field reaches for the pasteboards as soon as it gets the focus.  Where no pasteboard
// server runs, the toolkit then starts one and waits up to five seconds for its word through the
// notification daemon, and nothing is drawn meanwhile.
#pragma once

namespace dialog {

// The desktop's pasteboard server where there is one that answers, so that copy and paste work
// between programs; otherwise, and as soon as that one ends, pasteboards that live in this program.
// Before the application object is made.
void setUpPasteboards();

} // namespace dialog
