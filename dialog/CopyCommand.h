// CopyCommand.h - the lp command of a job, for the user to paste.
#pragma once

#include "dialog/background/JobSender.hpp"

#include <string>

namespace dialog {

// Puts the command that prints the job on the pasteboard and on the desktop's clipboard. `document`
// is the path of the user's file, empty for the sample label.
Failure copyCommand(const JobTicket& job, const std::string& document);

} // namespace dialog
