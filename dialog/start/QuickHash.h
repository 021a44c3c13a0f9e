// QuickHash.h - texts of the program's code that keep their hash.
#pragma once

namespace dialog {

// The toolkit finds settings, attributes and colours in dictionaries, by texts that are part of its
// code, and reads such a text through each time.  From here on each thread keeps what it has found
// out, for as many as there is room for.  The hash of every text stays what it was.  Call it on the
// main thread, before others use the toolkit; a second call does nothing.
void keepHashesOfConstantTexts();

} // namespace dialog
