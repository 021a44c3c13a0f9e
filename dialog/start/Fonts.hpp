// Fonts.hpp - the list of fonts, read while the program does other things.  Plain C++.
#pragma once

namespace dialog {

// Begins to read the font library's settings and lists, which the toolkit asks for as soon as it
// has a display.  Who comes before they are there reads them, too, and one of the two is used.
void beginReadingFonts();

} // namespace dialog
