// KeepToOneself.h - no word to other programs.
//
// On its start the toolkit tells every program of its kind, through a daemon that it starts for the
// purpose.  The daemon ends with its last client; a program that starts just then loses it half way
// and hangs or ends with an exception.  A print dialog has nothing to tell.
//
// Nor to ask: in a new home the toolkit looks through the whole system for programs that open files
// and offer services, and waits for the list, a fifth of a second, before it makes a window.
#pragma once

namespace dialog {

// Before the application object is made.
void keepToOneself();

} // namespace dialog
