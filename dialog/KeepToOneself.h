// KeepToOneself.h - no word to other programs.
//
// On its start the toolkit tells every program of its kind, through a daemon that it starts for the
// purpose.  The daemon ends with its last client; a program that starts just then loses it half way
// and hangs or ends with an exception.  A print dialog has nothing to tell.
#pragma once

namespace dialog {

// Before the application object is made.
void keepToOneself();

} // namespace dialog
