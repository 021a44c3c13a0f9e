// QuickText.h - texts of one line, measured and drawn without the toolkit's typesetter.
#pragma once

namespace dialog {

// From here on the process's texts that are simple enough (PlainText.hpp) take a tenth of the
// toolkit's time; to the eye and to whoever measures them they are the same.  All others go the
// toolkit's way, as does every text of a view that counts from the bottom.  Main thread; a second
// call does nothing.
void setTextQuickly();

} // namespace dialog
