// DebugLog.h - log lines and dumps for use while debugging the panel.
//
// Nothing in the panel calls these; they are exported under their plain names so that a debugger,
// or a line put in for an afternoon, can.  They never fail: what cannot be made or written is left
// out.  Any thread.
#pragma once

#include "plugin/Export.h"

#include <ApplicationServices/ApplicationServices.h>
#include <CoreFoundation/CoreFoundation.h>
#include <cups/ppd.h>

#ifdef __OBJC__
#include <AppKit/AppKit.h>

// One line of the system log: "BEGIN", "END" or "LOG", the object when there is one, and the
// message.  The object's description becomes part of the format: a "%" in it is a directive.
PDE_EXPORT void _PDEProlog(id object, NSString* format, ...);
PDE_EXPORT void _PDEEpilog(id object, NSString* format, ...);
PDE_EXPORT void _PDELog(id object, NSString* format, ...);

// The option of that keyword, its record's fields and its first choice, a line each.
PDE_EXPORT void _PDELog_ppd_option_t(ppd_file_t* ppd, const char* optionName);

// The settings as an XML property list, in the file "/VnPDE_<name>.plist".
PDE_EXPORT void _PDELog_PMPrintSettings_WriteToFile(PMPrintSettings settings, NSString* name);
#endif

// Only a level of 0 or less writes anything.

// "DEBUG: ", the message (up to its first NUL) in UTF-8, and a line end, on standard error.
PDE_EXPORT void debugLog(int level, CFStringRef format, ...);

// The message in UTF-8 and a line end.
PDE_EXPORT void debugLogFd(int level, int fd, CFStringRef format, ...);

// "DEBUG:" and the digits of 16 bytes, again and again, on standard error; without line ends.  The
// last group is there even when it is empty.
PDE_EXPORT void memoryCheck(int level, const void* bytes, int count);

// A line of digits for every 16 bytes, and one for the rest.
PDE_EXPORT void memoryCheckFd(int level, int fd, const void* bytes, int count);
