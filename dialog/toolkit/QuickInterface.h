// QuickInterface.h - interface files are read in less than three quarters of the time.
#pragma once

namespace dialog {

// The toolkit gives each part of an interface file that has no name a random one, for which it
// opens a device file, and parses the same condition anew for each control that might have an
// action.  And it reads each file twice, the first time to learn its format.  From here on random
// bytes come from one call of the system, a condition that is part of a program's code and has no
// places to fill is parsed once, and the format of the file that was read last is known.  Names are
// still by chance, and conditions hold for what they held for.  Call it on the main thread, before
// others use the toolkit; a second call does nothing.
void readInterfaceFilesQuickly();

} // namespace dialog
