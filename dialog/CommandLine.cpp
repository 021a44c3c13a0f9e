#include "dialog/CommandLine.hpp"

#include <charconv>
#include <optional>

namespace dialog {

namespace {

std::string_view trimmed(std::string_view text) noexcept
{
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The text member that an option with a value fills; nullptr for any other name.
std::string* textFor(CommandLine& line, std::string_view name) noexcept
{
    struct Entry
    {
        std::string_view name;
        std::string CommandLine::*member;
    };
    static constexpr Entry kEntries[] = {
        {"--plugin", &CommandLine::plugin},         {"--device-uri", &CommandLine::deviceURI},
        {"--printer", &CommandLine::printer},       {"--paper", &CommandLine::paper},
        {"--title", &CommandLine::title},           {"--output", &CommandLine::output},
        {"--screenshot", &CommandLine::screenshot}, {"--list-controls", &CommandLine::listControls},
        {"--preset", &CommandLine::preset},
    };
    for (const Entry& entry : kEntries) {
        if (entry.name == name) {
            return &(line.*entry.member);
        }
    }
    return nullptr;
}

bool* flagFor(CommandLine& line, std::string_view name) noexcept
{
    if (name == "--print-at-once") {
        return &line.printAtOnce;
    }
    if (name == "--show-summary") {
        return &line.showSummary;
    }
    if (name == "--no-memory") {
        return &line.noMemory;
    }
    if (name == "--help") {
        return &line.help;
    }
    if (name == "--version") {
        return &line.version;
    }
    return nullptr;
}

std::string takeValue(CommandLine& line, std::string_view name, std::string_view value)
{
    if (name == "--copies") {
        return parseCopies(value, line.copies)
                   ? std::string()
                   : "--copies takes a whole number from 1 to 999, not \"" + std::string(value) +
                         "\".";
    }
    if (value.empty()) {
        return std::string(name) + " needs a value.";
    }
    if (name == "--appearance") {
        return parseAppearance(value, line.appearance)
                   ? std::string()
                   : "--appearance takes auto, light or dark, not \"" + std::string(value) + "\".";
    }
    if (name == "--ppd") {
        line.ppdFiles.emplace_back(value);
        return {};
    }
    if (name == "--set") {
        const std::size_t equals = value.find('=');
        if (equals == std::string_view::npos || equals == 0 || equals + 1 == value.size()) {
            return "--set takes KEYWORD=CHOICE, not \"" + std::string(value) + "\".";
        }
        line.wanted.emplace_back(value.substr(0, equals), value.substr(equals + 1));
        return {};
    }
    *textFor(line, name) = value;
    return {};
}

bool takesValue(CommandLine& line, std::string_view name) noexcept
{
    return name == "--appearance" || name == "--copies" || name == "--ppd" || name == "--set" ||
           textFor(line, name) != nullptr;
}

} // namespace

CommandLine parseCommandLine(std::span<const std::string_view> arguments)
{
    CommandLine line;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size() && line.error.empty(); ++i) {
        const std::string_view argument = arguments[i];
        if (!optionsEnded && argument == "--") {
            optionsEnded = true;
            continue;
        }
        if (optionsEnded || argument.size() < 2 || argument.front() != '-') {
            if (!line.document.empty()) {
                line.error = "Only one document can be printed at a time, and \"" +
                             std::string(argument) + "\" would be the second.";
            } else if (argument.empty()) {
                line.error = "The document's name is empty.";
            } else {
                line.document = argument;
            }
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        if (bool* flag = flagFor(line, name)) {
            if (equals == std::string_view::npos) {
                *flag = true;
            } else {
                line.error = std::string(name) + " takes no value.";
            }
        } else if (!takesValue(line, name)) {
            line.error = "The option \"" + std::string(name) + "\" is not known.";
        } else if (equals != std::string_view::npos) {
            line.error = takeValue(line, name, argument.substr(equals + 1));
        } else if (i + 1 == arguments.size()) {
            line.error = std::string(name) + " needs a value.";
        } else {
            line.error = takeValue(line, name, arguments[++i]);
        }
    }
    return line;
}

bool parseCopies(std::string_view text, std::int32_t& copies) noexcept
{
    const std::string_view digits = trimmed(text);
    std::int32_t number = 0;
    const auto [end, problem] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (problem != std::errc() || end != digits.data() + digits.size() || number < kMinCopies ||
        number > kMaxCopies) {
        return false;
    }
    copies = number;
    return true;
}

std::string_view helpText() noexcept
{
    return R"(Usage: tape-print [OPTION]... [FILE]

Opens a print dialog for a label-tape printer and prints FILE.
Without FILE the built-in sample label is printed.

  --printer NAME       start with this printer (a CUPS queue, a --ppd printer or "Sample Tape")
  --paper NAME         start with this tape (a page size of the PPD)
  --copies N           1 to 999
  --title TEXT         the job's title; otherwise the document's name
  --set KEYWORD=CHOICE start with this option of the PPD; may be given more than once
  --preset NAME        start with this preset; --paper and --set win over it
  --no-memory          start with the printer's defaults, and keep nothing of the last values
  --ppd FILE           offer a printer with this PPD; may be given more than once
  --device-uri URI     where the --ppd printers are attached (usb://Sample/Tape)
  --output FOLDER      where printers without a queue print (out)
  --plugin PATH        the panel's bundle (PageSettings.plugin beside the program)
  --appearance LOOK    auto (as the desktop), light or dark

For scripts:
  --print-at-once      press Print as soon as the window is shown
  --show-summary       start with the summary
  --screenshot FILE    draw the window to a PNG file and go on
  --list-controls FILE keep the names, places and values of the visible controls in FILE
  --help, --version

Exit status:
  0 printed                      5 no print server or no such printer
  1 closed without printing      6 the PPD cannot be used
  2 wrong command line           7 the document cannot be read
  3 no display                   8 the job was held back, refused or not written
  4 no panel                     9 a picture or list of controls was not written
)";
}

} // namespace dialog
