// OptionTable.hpp - the options of tape-print, each told once: parsing, --help, the manual page and
// the shells' completion all go by this table.
//
// Plain C++.
#pragma once

#include "dialog/CommandLine.hpp"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

// What a value is, for the shells to complete.
enum class ValueKind : std::uint8_t
{
    Text,
    File,
    Folder,
    Printer,
    Paper,
};

struct OptionEntry
{
    std::string_view name;        // with its dashes
    std::string_view placeholder; // of the value, as --help shows it; empty: takes none
    ValueKind kind = ValueKind::Text;
    const char* help = ""; // in the user's language; valid for good
    bool beginsSection = false;
    // What becomes of it: one of these is set.
    bool CommandLine::*flag = nullptr;
    std::string CommandLine::*text = nullptr;
    // Answers a sentence when the value is not understood.
    std::string (*take)(CommandLine& line, std::string_view value) = nullptr;
};

// In the order of --help.
std::vector<OptionEntry> optionTable();

} // namespace dialog
