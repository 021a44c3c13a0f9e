// TapeTheme.h - the look of this program's windows.
//
//     [NSApplication sharedApplication];
//     dialog::useTheme(dialog::Appearance::Dark);
//
// Every control that the toolkit draws is drawn by vectors from then on, those of a loaded panel
// too; nothing needs to know.  Only drawing changes: sizes, values and what a click does do not.
#pragma once

#include "dialog/theme/Palette.hpp"

#include <AppKit/AppKit.h>

namespace dialog {

// To be called once, before the first window is made; a later call changes the colours of all
// windows.
void useTheme(Appearance appearance);

// A colour of the look in use (of the light one before useTheme).  The object is autoreleased.
NSColor* themeColor(Role role);
Color themeValue(Role role);

} // namespace dialog
