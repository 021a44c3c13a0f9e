#include "dialog/ExitStatus.hpp"

#include "dialog/Translate.hpp"

namespace dialog {

std::vector<StatusEntry> statusTable()
{
    return {
        {ExitStatus::Printed, tr("printed, or answered what was asked")},
        {ExitStatus::Cancelled, tr("closed without printing")},
        {ExitStatus::CommandLine, tr("wrong command line")},
        {ExitStatus::NoDisplay, tr("no display")},
        {ExitStatus::NoPanel, tr("no panel")},
        {ExitStatus::NoPrinter, tr("no print server, or no such printer or tape")},
        {ExitStatus::BadPPD, tr("the PPD cannot be used")},
        {ExitStatus::NoDocument, tr("the document cannot be read")},
        {ExitStatus::NotPrinted, tr("the job was held back, refused or not written")},
        {ExitStatus::NotWritten, tr("an answer, a picture or a list of controls was not written")},
        {ExitStatus::NoChoice, tr("the printer has no such choice, or choices exclude each other")},
    };
}

} // namespace dialog
