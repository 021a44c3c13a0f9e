#include "dialog/background/PrinterOpener.hpp"

#include "dialog/BuiltIn.hpp"
#include "dialog/Translate.hpp"
#include "dialog/printers/PrintServer.hpp"

#include <utility>

#include <malloc.h>

namespace dialog {

namespace {

// Of such a PPD the C library would keep for itself several megabytes that were needed to read it.
constexpr std::size_t kLarge = 1024 * 1024;

} // namespace

OpenedPPD openPPDOf(const PrinterEntry& printer, Cancellation* cancellation)
{
    OpenedPPD opened;
    switch (printer.kind) {
    case PrinterKind::PPDFile:
        opened.ppd = PPDFile::fromPath(printer.ppdPath, opened.failure);
        break;
    case PrinterKind::Queue: {
        const std::string bytes = fetchPPD(printer.name, opened.failure, cancellation);
        if (!opened.failure) {
            opened.ppd = PPDFile::fromBytes(printer.name, bytes, opened.failure);
        }
        break;
    }
    case PrinterKind::Sample:
        opened.ppd = PPDFile::fromBytes(printer.name, samplePPD(), opened.failure);
        break;
    }
    return opened;
}

PrinterOpener::PrinterOpener(Open open) : open_(std::move(open)) {}

void PrinterOpener::begin(PrinterEntry printer, Clock::time_point now)
{
    printer_ = std::move(printer);
    deadline_ = now + kDeadline;
    opening_ = Errand<OpenedPPD>([open = open_, wanted = printer_](Cancellation& cancellation) {
        OpenedPPD opened = open(wanted, &cancellation);
        if (opened.ppd.bytes() > kLarge) {
            malloc_trim(0);
        }
        return opened;
    });
}

std::optional<OpenedPPD> PrinterOpener::poll(Clock::time_point now,
                                             std::chrono::milliseconds patience)
{
    std::optional<OpenedPPD> opened = opening_.take(patience);
    if (!opened && opening_.underWay() && now >= deadline_) {
        opening_ = {};
        opened.emplace();
        opened->failure = printer_.kind == PrinterKind::PPDFile
                              ? ppdNotReadable(printer_.ppdPath, tr("it takes too long"))
                              : ppdNotSent(printer_.name);
    }
    return opened;
}

} // namespace dialog
