// Pictures.h - the toolkit's own pictures, found at once.
#pragma once

namespace dialog {

// Before the application object is made.  The toolkit looks for a picture by every ending, through
// every library, asking the disk each time; from now on it looks in the same places in the same
// order, but reads each of them once.  Where that cannot be had it looks as before.
void findPicturesAtOnce();

} // namespace dialog
