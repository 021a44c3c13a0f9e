// Messages.hpp - every sentence the dialog says when something is not as it should be.
//
// Texts that come from outside (names, reasons) are put in as they are, with control characters
// shown as blanks; none of them is ever a format.  Plain C++.
#pragma once

#include "dialog/ExitStatus.hpp"
#include "dialog/ppd/PPDCheck.hpp"

#include <cstddef>
#include <string>
#include <string_view>

namespace dialog {

// A failure as it is shown and as the shell sees it.  An empty text is no failure.
struct Failure
{
    std::string text;
    ExitStatus status = ExitStatus::Printed;

    explicit operator bool() const noexcept { return !text.empty(); }
};

Failure noDisplay();

Failure bundleNotFound(std::string_view path);
Failure bundleNotLoadable(std::string_view path);
Failure bundleNotAPlugin(std::string_view path);
Failure bundleRefusesSystem(std::string_view path);
Failure noPanelForType(std::string_view path);
Failure panelWithoutView(std::string_view path);

// A `server` that begins with a slash is a socket.  `reason` may be empty.
Failure serverSilent(std::string_view server, std::string_view reason);
// Said with serverSilent(): the printers in the window are those of the last time.
std::string printersOfLastTime(const Failure& silent);
std::string lookingForPrinters();
std::string openingPrinter(std::string_view name);
Failure ppdNotSent(std::string_view name);
Failure noSuchPrinter(std::string_view name);
Failure printerWithoutPPD(std::string_view name, std::string_view reason);
Failure noPrinterToChoose();
Failure printerWithoutTapes(std::string_view name);
Failure noSuchPaper(std::string_view paper, std::string_view printer);

Failure noSuchChoice(std::string_view printer, std::string_view option, std::string_view choice);

// Why there is no lp command for a job.
Failure noCommandWithoutQueue(std::string_view printer);
Failure noCommandWithoutDocument();
Failure noCommandForOptions();

Failure ppdNotReadable(std::string_view name, std::string_view reason);
Failure ppdRefused(std::string_view name, const PPDCheckResult& found);
// `line` and `reason` are those of libcups; a line of 0 or less is left out.
Failure ppdDamaged(std::string_view name, int line, std::string_view reason);

Failure documentNotReadable(std::string_view path, std::string_view reason);
Failure copiesNotUnderstood(std::string_view text);
Failure panelHoldsJob();
Failure jobRefused(std::string_view printer, std::string_view reason);
Failure outputNotWritten(std::string_view folder, std::string_view reason);
Failure fileNotWritten(std::string_view path);

// `reason` may be empty.
Failure jobGivenUp(std::string_view printer, int jobId, std::string_view reason);
std::string jobWaits(std::string_view printer, int jobId, std::string_view reason);
std::string jobOutOfSight(std::string_view printer, int jobId);
// What the window says of a job on its way; `percent` is 0 to 100.
std::string sendingJob(int percent);
std::string followingJob();
std::string cancellingJob();
std::string jobCancelled();
// `reason` may be empty.
Failure jobNotCancelled(std::string_view printer, int jobId, std::string_view reason);

// What the window says of a job that went well.
std::string jobSent(std::string_view printer, int jobId);
std::string jobWritten(std::string_view folder);

// `text` with control characters as blanks, cut to `most` bytes between characters.
std::string shown(std::string_view text, std::size_t most = 300);

} // namespace dialog
