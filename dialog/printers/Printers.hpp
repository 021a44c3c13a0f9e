// Printers.hpp - the printers the dialog offers.  Plain C++.
#pragma once

#include "dialog/CommandLine.hpp"
#include "dialog/printers/PrintServer.hpp"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

inline constexpr std::string_view kSamplePrinter = "Sample Tape";

enum class PrinterKind : std::uint8_t
{
    Queue,   // of the print server
    PPDFile, // a PPD given on the command line; prints into a folder
    Sample,  // built in; prints into a folder
};

struct PrinterEntry
{
    PrinterKind kind = PrinterKind::Sample;
    std::string name;      // the queue's name, or what the user calls the printer by
    std::string title;     // in the pop-up
    std::string deviceURI; // may be empty
    std::string ppdPath;   // of a PPDFile

    bool operator==(const PrinterEntry&) const = default;
};

// The PPD files first, in the order given, then the queues, then the sample printer.
std::vector<PrinterEntry> printersToOffer(const CommandLine& line,
                                          const std::vector<Queue>& queues);

// By name, or for a PPD file also by its path; no value when there is none.
std::optional<std::size_t> findPrinter(const std::vector<PrinterEntry>& printers,
                                       std::string_view name) noexcept;

} // namespace dialog
