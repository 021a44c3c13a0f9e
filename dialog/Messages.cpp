#include "dialog/Messages.hpp"

#include "dialog/Translate.hpp"

namespace dialog {

namespace {

std::string quoted(std::string_view text)
{
    return filled(tr("\"{1}\""), {shown(text)});
}

// A sentence with its reason, if there is one; a reason's own full stop is not doubled.
std::string because(std::string_view sentence, std::string_view reason)
{
    std::string text = shown(reason);
    while (!text.empty() && (text.back() == '.' || text.back() == ' ')) {
        text.pop_back();
    }
    return text.empty() ? filled(tr("{1}."), {sentence})
                        : filled(tr("{1}: {2}."), {sentence, text});
}

Failure missingPanel(const char* pattern, std::string_view path)
{
    return {filled(pattern, {quoted(path)}), ExitStatus::NoPanel};
}

} // namespace

std::string shown(std::string_view text, std::size_t most)
{
    std::size_t end = text.size();
    if (end > most) {
        end = most;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) {
            --end;
        }
    }
    std::string result(text.substr(0, end));
    for (char& byte : result) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20 || code == 0x7F) {
            byte = ' ';
        }
    }
    if (end < text.size()) {
        result += "...";
    }
    return result;
}

Failure noDisplay()
{
    return {tr("No window can be opened: there is no display, or it does not answer."),
            ExitStatus::NoDisplay};
}

Failure bundleNotFound(std::string_view path)
{
    return missingPanel(tr("The Page Settings panel is missing: there is no bundle at {1}."), path);
}

Failure bundleNotLoadable(std::string_view path)
{
    return missingPanel(
        tr("The Page Settings panel is missing: the bundle {1} could not be loaded."), path);
}

Failure bundleNotAPlugin(std::string_view path)
{
    return missingPanel(
        tr("The Page Settings panel is missing: the bundle {1} is no print-dialog extension."),
        path);
}

Failure bundleRefusesSystem(std::string_view path)
{
    return missingPanel(tr("The Page Settings panel is missing: the bundle {1} refuses this "
                           "release of the operating system."),
                        path);
}

Failure noPanelForType(std::string_view path)
{
    return missingPanel(tr("The Page Settings panel is missing: the bundle {1} has no panel for "
                           "the print dialog."),
                        path);
}

Failure panelWithoutView(std::string_view path)
{
    return missingPanel(
        tr("The Page Settings panel is missing: the panel of the bundle {1} has no view."), path);
}

Failure serverSilent(std::string_view server, std::string_view reason)
{
    return {because(filled(tr("The print server {1} does not answer"), {quoted(server)}), reason),
            ExitStatus::NoPrinter};
}

std::string printersOfLastTime(const Failure& silent)
{
    return filled(tr("{1} The printers are those known from the last time."), {silent.text});
}

std::string lookingForPrinters()
{
    return tr("Looking for printers...");
}

std::string openingPrinter(std::string_view name)
{
    return filled(tr("Opening the printer {1}..."), {quoted(name)});
}

Failure ppdNotSent(std::string_view name)
{
    return {
        filled(tr("The print server does not send the PPD of the printer {1}."), {quoted(name)}),
        ExitStatus::NoPrinter};
}

Failure noSuchPrinter(std::string_view name)
{
    return {filled(tr("There is no printer named {1}."), {quoted(name)}), ExitStatus::NoPrinter};
}

Failure printerWithoutPPD(std::string_view name, std::string_view reason)
{
    return {because(filled(tr("The printer {1} offers no PPD"), {quoted(name)}), reason),
            ExitStatus::BadPPD};
}

Failure noPrinterToChoose()
{
    return {tr("There is no printer on the print server."), ExitStatus::NoPrinter};
}

Failure printerWithoutTapes(std::string_view name)
{
    return {filled(tr("The PPD of the printer {1} names no tape."), {quoted(name)}),
            ExitStatus::BadPPD};
}

Failure noSuchPaper(std::string_view paper, std::string_view printer)
{
    return {filled(tr("The printer {1} has no tape named {2}."), {quoted(printer), quoted(paper)}),
            ExitStatus::NoPrinter};
}

Failure noSuchChoice(std::string_view printer, std::string_view option, std::string_view choice)
{
    return {filled(tr("The printer {1} has no choice {2} for the option {3}."),
                   {quoted(printer), quoted(choice), quoted(option)}),
            ExitStatus::NoChoice};
}

Failure noCommandWithoutQueue(std::string_view printer)
{
    return {filled(tr("There is no lp command for the printer {1}: it prints into a folder."),
                   {quoted(printer)}),
            ExitStatus::NoPrinter};
}

Failure noCommandWithoutDocument()
{
    return {tr("There is no lp command for the built-in sample label: it is no file."),
            ExitStatus::NoDocument};
}

Failure noCommandForOptions()
{
    return {tr("There is no lp command for these options: lp cannot read the name of one of them."),
            ExitStatus::NoChoice};
}

Failure ppdNotReadable(std::string_view name, std::string_view reason)
{
    return {because(filled(tr("The PPD {1} cannot be read"), {quoted(name)}), reason),
            ExitStatus::BadPPD};
}

Failure ppdRefused(std::string_view name, const PPDCheckResult& found)
{
    const std::string reason(reasonText(found.fault));
    return {found.line == 0 ? filled(tr("The PPD {1} is not used: {2}."), {quoted(name), reason})
                            : filled(tr("The PPD {1} is not used: {2} (line {3})."),
                                     {quoted(name), reason, std::to_string(found.line)}),
            ExitStatus::BadPPD};
}

Failure ppdDamaged(std::string_view name, int line, std::string_view reason)
{
    return {because(line <= 0 ? filled(tr("The PPD {1} is damaged"), {quoted(name)})
                              : filled(tr("The PPD {1} is damaged in line {2}"),
                                       {quoted(name), std::to_string(line)}),
                    reason),
            ExitStatus::BadPPD};
}

Failure documentNotReadable(std::string_view path, std::string_view reason)
{
    return {because(filled(tr("The document {1} cannot be read"), {quoted(path)}), reason),
            ExitStatus::NoDocument};
}

Failure copiesNotUnderstood(std::string_view text)
{
    return {filled(tr("The number of copies must be a whole number from 1 to 999, not {1}."),
                   {quoted(text)}),
            ExitStatus::NotPrinted};
}

Failure panelHoldsJob()
{
    return {tr("The Page Settings panel holds the job back. Check its settings and print again."),
            ExitStatus::NotPrinted};
}

Failure jobRefused(std::string_view printer, std::string_view reason)
{
    return {because(filled(tr("The print server did not take the job for {1}"), {quoted(printer)}),
                    reason),
            ExitStatus::NotPrinted};
}

Failure outputNotWritten(std::string_view folder, std::string_view reason)
{
    return {because(filled(tr("Nothing could be printed into the folder {1}"), {quoted(folder)}),
                    reason),
            ExitStatus::NotPrinted};
}

Failure fileNotWritten(std::string_view path)
{
    return {filled(tr("The file {1} cannot be written."), {quoted(path)}), ExitStatus::NotWritten};
}

Failure jobGivenUp(std::string_view printer, int jobId, std::string_view reason)
{
    return {because(filled(tr("The job {1} was not printed on {2}"),
                           {std::to_string(jobId), quoted(printer)}),
                    reason),
            ExitStatus::NotPrinted};
}

std::string jobWaits(std::string_view printer, int jobId, std::string_view reason)
{
    return because(filled(tr("The job {1} waits on {2}"), {std::to_string(jobId), quoted(printer)}),
                   reason);
}

std::string jobOutOfSight(std::string_view printer, int jobId)
{
    return filled(tr("The job {1} was sent to {2}, but the print server does not say what becomes "
                     "of it."),
                  {std::to_string(jobId), quoted(printer)});
}

std::string sendingJob(int percent)
{
    return filled(tr("Sending: {1} %"), {std::to_string(percent)});
}

std::string followingJob()
{
    return tr("Waiting for the print server to take the job...");
}

std::string cancellingJob()
{
    return tr("Cancelling the job...");
}

std::string jobCancelled()
{
    return tr("The job was cancelled.");
}

Failure jobNotCancelled(std::string_view printer, int jobId, std::string_view reason)
{
    return {because(filled(tr("The job {1} on {2} could not be cancelled"),
                           {std::to_string(jobId), quoted(printer)}),
                    reason),
            ExitStatus::NotPrinted};
}

std::string jobSent(std::string_view printer, int jobId)
{
    return filled(tr("Printed on {1} as job {2}."), {quoted(printer), std::to_string(jobId)});
}

std::string jobWritten(std::string_view folder)
{
    return filled(tr("Printed into the folder {1}."), {quoted(folder)});
}

} // namespace dialog
