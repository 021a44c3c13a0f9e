// InputMethod.h - composed letters, made ready when there is time for it.
//
// On its start the toolkit has the window system's library read its table of composed letters,
// thousands of lines, before it makes a window.  Nobody composes letters without one.
#pragma once

namespace dialog {

// Before the application object is made: the input method waits for openInputMethod() or for the
// first key, whichever comes first, so that no key is lost.
void deferInputMethod();

// Opens it, unless it is open or was never deferred.
void openInputMethod();

} // namespace dialog
