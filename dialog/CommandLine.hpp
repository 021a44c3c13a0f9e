// CommandLine.hpp - the arguments of tape-print, read and checked.
//
//     const CommandLine line = parseCommandLine(arguments);
//     if (!line.error.empty()) ...
//
// Plain C++.
#pragma once

#include "dialog/theme/Wanted.hpp"
#include "dialog/twin/LengthWord.hpp"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dialog {

inline constexpr std::int32_t kMinCopies = 1;
inline constexpr std::int32_t kMaxCopies = 999;

struct CommandLine
{
    std::string document;                                    // empty: the built-in sample label
    std::string plugin;                                      // empty: beside the program
    std::vector<std::string> ppdFiles;                       // each becomes a printer of its own
    std::string deviceURI = "usb://Sample/Tape";             // of the --ppd printers
    std::string printer;                                     // empty: the first one
    std::string paper;                                       // empty: the PPD's default
    std::optional<LengthWord> length;                        // none: the tape's
    std::optional<LengthWord> margin;                        // none: the PPD's default
    std::int32_t copies = kMinCopies;                        // kMinCopies to kMaxCopies
    std::string title;                                       // empty: the document's name
    std::string preset;                                      // empty: none
    std::string output = "out";                              // where printers without a queue print
    std::string screenshot;                                  // empty: none
    std::string listControls;                                // empty: none
    std::vector<std::pair<std::string, std::string>> wanted; // --set, in order
    WantedAppearance appearance = WantedAppearance::Auto;
    bool print = false; // without a window, as the next five
    bool dryRun = false;
    bool showCommand = false;
    bool list = false;
    bool json = false; // with `list`
    bool check = false;
    bool printAtOnce = false;
    bool showSummary = false;
    bool noMemory = false;
    bool help = false;
    bool version = false;

    std::string error; // a sentence; empty when all was understood
};

// What the program is asked to do without a window, if anything.
enum class Task : std::uint8_t
{
    Window,
    Print,
    DryRun,
    ShowCommand,
    List,
    Check,
};
// To say what would be printed wins over printing it.
Task taskOf(const CommandLine& line) noexcept;

// `arguments` are those after the program's name.
CommandLine parseCommandLine(std::span<const std::string_view> arguments);

// A number of copies as a person writes it: digits with blanks around them.  False, and `copies`
// untouched, when it is none or lies outside kMinCopies to kMaxCopies.
bool parseCopies(std::string_view text, std::int32_t& copies) noexcept;

// What --help prints, in the user's language.
std::string helpText();

} // namespace dialog
