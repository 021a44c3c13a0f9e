// ExitStatus.hpp - what the program answers to the shell.
//
// Scripts rely on these numbers; a number keeps its meaning for good.
#pragma once

#include <cstdint>
#include <vector>

namespace dialog {

enum class ExitStatus : std::int32_t
{
    Printed = 0,     // the job was accepted, or what was asked was answered
    Cancelled = 1,   // the window was closed without a job
    CommandLine = 2, // an argument was not understood
    NoDisplay = 3,   // no window could be opened
    NoPanel = 4,     // the plug-in bundle or its panel is not there
    NoPrinter = 5,   // no print server, or no such printer
    BadPPD = 6,      // the printer's PPD could not be used
    NoDocument = 7,  // the document could not be read
    NotPrinted = 8,  // the job was held back, refused or could not be written
    NotWritten = 9,  // an answer, the picture or the list of controls could not be written
    NoChoice = 10,   // the printer has no such choice, or its choices do not go together
};

struct StatusEntry
{
    ExitStatus status;
    const char* meaning; // in the user's language; valid for good
};

// Every status, by number.
std::vector<StatusEntry> statusTable();

} // namespace dialog
