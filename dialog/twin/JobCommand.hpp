// JobCommand.hpp - the command that prints a job, or why there is none; for the window and for
// --show-command.  Plain C++.
#pragma once

#include "dialog/Messages.hpp"
#include "dialog/job/JobOptions.hpp"
#include "dialog/printers/Printers.hpp"

#include <string>
#include <vector>

namespace dialog {

// `document` is the path of the user's file, empty for the sample label.  `command` is one line
// without its end; unchanged after a failure.
Failure jobCommand(const PrinterEntry& printer, const std::string& title,
                   const std::vector<JobOption>& options, const std::string& document,
                   std::string& command);

} // namespace dialog
