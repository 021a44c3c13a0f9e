// ProcessStart.h - the toolkit's own start in this process.
#pragma once

namespace dialog {

// Before anything else of the toolkit is used.  It gets neither words of the command line, since it
// takes every plain one for a file to open and every -word for a default, nor variables of
// `environment` that are no UTF-8: it raises for one byte of those.
void beginToolkit(char** environment);

} // namespace dialog
