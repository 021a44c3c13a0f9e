#include "dialog/CommandLine.hpp"

#include "dialog/ExitStatus.hpp"
#include "dialog/OptionTable.hpp"
#include "dialog/Translate.hpp"

#include <algorithm>
#include <charconv>

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

const OptionEntry* entryNamed(const std::vector<OptionEntry>& table, std::string_view name) noexcept
{
    for (const OptionEntry& entry : table) {
        if (entry.name == name) {
            return &entry;
        }
    }
    return nullptr;
}

std::string takeValue(CommandLine& line, const OptionEntry& entry, std::string_view value)
{
    // The copies' own sentence says what they take.
    if (value.empty() && entry.name != "--copies") {
        return filled(tr("{1} needs a value."), {entry.name});
    }
    if (entry.take != nullptr) {
        return entry.take(line, value);
    }
    line.*entry.text = value;
    return {};
}

struct Given
{
    const char* name;
    bool given;
};

std::string notTogether(const char* one, const char* other)
{
    return filled(tr("{1} and {2} cannot go together."), {one, other});
}

// Two tasks, or a manner of one that is not asked for, are a mistake rather than a choice.
std::string contradiction(const CommandLine& line)
{
    const char* task =
        line.print && (line.list || line.check || line.printAtOnce) ? "--print" : nullptr;
    for (const Given& other : {Given{"--dry-run", line.dryRun},
                               {"--show-command", line.showCommand},
                               {"--list", line.list},
                               {"--check", line.check},
                               {"--print-at-once", line.printAtOnce}}) {
        if (other.given && task != nullptr) {
            return notTogether(task, other.name);
        }
        if (other.given) {
            task = other.name;
        }
    }
    if (line.json && !line.list) {
        return filled(tr("{1} goes with {2} only."), {"--json", "--list"});
    }
    if (taskOf(line) == Task::Window) {
        return {};
    }
    for (const Given& ofWindow : {Given{"--preset", !line.preset.empty()},
                                  {"--show-summary", line.showSummary},
                                  {"--screenshot", !line.screenshot.empty()},
                                  {"--list-controls", !line.listControls.empty()}}) {
        if (ofWindow.given) {
            return notTogether(task == nullptr ? "--print" : task, ofWindow.name);
        }
    }
    return (line.list || line.check) && !line.document.empty()
               ? filled(tr("{1} takes no document."), {task})
               : std::string();
}

} // namespace

CommandLine parseCommandLine(std::span<const std::string_view> arguments)
{
    const std::vector<OptionEntry> table = optionTable();
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
                line.error = filled(tr("Only one document can be printed at a time, and \"{1}\" "
                                       "would be the second."),
                                    {argument});
            } else if (argument.empty()) {
                line.error = tr("The document's name is empty.");
            } else {
                line.document = argument;
            }
            continue;
        }
        const std::size_t equals = argument.find('=');
        const std::string_view name = argument.substr(0, equals);
        const OptionEntry* const entry = entryNamed(table, name);
        if (entry == nullptr) {
            line.error = filled(tr("The option \"{1}\" is not known."), {name});
        } else if (entry->flag != nullptr) {
            if (equals == std::string_view::npos) {
                line.*entry->flag = true;
            } else {
                line.error = filled(tr("{1} takes no value."), {name});
            }
        } else if (equals != std::string_view::npos) {
            line.error = takeValue(line, *entry, argument.substr(equals + 1));
        } else if (i + 1 == arguments.size()) {
            line.error = filled(tr("{1} needs a value."), {name});
        } else {
            line.error = takeValue(line, *entry, arguments[++i]);
        }
    }
    if (line.error.empty()) {
        line.error = contradiction(line);
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

Task taskOf(const CommandLine& line) noexcept
{
    if (line.list) {
        return Task::List;
    }
    if (line.check) {
        return Task::Check;
    }
    if (line.dryRun) {
        return Task::DryRun;
    }
    if (line.showCommand) {
        return Task::ShowCommand;
    }
    return line.print ? Task::Print : Task::Window;
}

std::string helpText()
{
    const auto left = [](const OptionEntry& entry) {
        std::string text = "  " + std::string(entry.name);
        return entry.placeholder.empty() ? text : text + " " + std::string(entry.placeholder);
    };
    const std::vector<OptionEntry> table = optionTable();
    std::size_t widest = 0;
    for (const OptionEntry& entry : table) {
        widest = std::max(widest, left(entry).size());
    }
    std::string text = tr("Usage: tape-print [OPTION]... [FILE]");
    text += "\n\n";
    text +=
        tr("Opens a print dialog for a label-tape printer and prints FILE; with --print and the\n"
           "options beside it, does so without a window.  Without FILE the built-in sample label\n"
           "is printed.");
    text += '\n';
    for (const OptionEntry& entry : table) {
        std::string line = left(entry);
        line.resize(widest + 2, ' ');
        text += (entry.beginsSection ? "\n" : "") + line + entry.help + "\n";
    }
    text += '\n';
    text += tr("Exit status:");
    text += '\n';
    for (const StatusEntry& entry : statusTable()) {
        const std::string number = std::to_string(static_cast<std::int32_t>(entry.status));
        text += std::string(4 - std::min<std::size_t>(number.size(), 4), ' ') + number + "  " +
                entry.meaning + "\n";
    }
    return text;
}

} // namespace dialog
