#include "dialog/OptionTable.hpp"

#include "dialog/Translate.hpp"
#include "dialog/twin/LengthWord.hpp"

namespace dialog {

namespace {

std::string notUnderstood(const char* pattern, std::string_view value)
{
    return filled(pattern, {value});
}

std::string takeCopies(CommandLine& line, std::string_view value)
{
    return parseCopies(value, line.copies)
               ? std::string()
               : notUnderstood(tr("--copies takes a whole number from 1 to 999, not \"{1}\"."),
                               value);
}

std::string takeAppearance(CommandLine& line, std::string_view value)
{
    return parseAppearance(value, line.appearance)
               ? std::string()
               : notUnderstood(tr("--appearance takes auto, light or dark, not \"{1}\"."), value);
}

std::string takePPD(CommandLine& line, std::string_view value)
{
    line.ppdFiles.emplace_back(value);
    return {};
}

std::string takeSetting(CommandLine& line, std::string_view value)
{
    const std::size_t equals = value.find('=');
    if (equals == std::string_view::npos || equals == 0 || equals + 1 == value.size()) {
        return notUnderstood(tr("--set takes KEYWORD=CHOICE, not \"{1}\"."), value);
    }
    line.wanted.emplace_back(value.substr(0, equals), value.substr(equals + 1));
    return {};
}

std::string takeLength(CommandLine& line, std::string_view value)
{
    line.length = parseLength(value);
    return line.length
               ? std::string()
               : notUnderstood(
                     tr("--length takes a length such as 40, 40.5mm or 1.5in, not \"{1}\"."),
                     value);
}

std::string takeMargin(CommandLine& line, std::string_view value)
{
    line.margin = parseLength(value);
    return line.margin
               ? std::string()
               : notUnderstood(
                     tr("--margin takes a length such as 3, 2.5mm or 0.25in, not \"{1}\"."), value);
}

} // namespace

std::vector<OptionEntry> optionTable()
{
    using Line = CommandLine;
    return {
        {.name = "--printer",
         .placeholder = "NAME",
         .kind = ValueKind::Printer,
         .help = tr("this printer: a CUPS queue, a --ppd printer or \"Sample Tape\""),
         .beginsSection = true,
         .text = &Line::printer},
        {.name = "--paper",
         .placeholder = "NAME",
         .kind = ValueKind::Paper,
         .help = tr("this tape: a page size of the printer"),
         .text = &Line::paper},
        {.name = "--length",
         .placeholder = "LENGTH",
         .help = tr("the label's length, in the printer's unit or with mm or in behind it"),
         .take = takeLength},
        {.name = "--margin",
         .placeholder = "LENGTH",
         .help = tr("the margin, likewise"),
         .take = takeMargin},
        {.name = "--set",
         .placeholder = "KEYWORD=CHOICE",
         .help = tr("this choice of an option; may be given more than once"),
         .take = takeSetting},
        {.name = "--preset",
         .placeholder = "NAME",
         .help = tr("start with this preset; --paper and --set win over it"),
         .text = &Line::preset},
        {.name = "--no-memory",
         .help = tr("start with the printer's defaults, and keep nothing of the last values"),
         .flag = &Line::noMemory},
        {.name = "--copies", .placeholder = "N", .help = tr("1 to 999"), .take = takeCopies},
        {.name = "--title",
         .placeholder = "TEXT",
         .help = tr("the job's title; otherwise the document's name"),
         .text = &Line::title},
        {.name = "--ppd",
         .placeholder = "FILE",
         .kind = ValueKind::File,
         .help = tr("offer a printer with this PPD; may be given more than once"),
         .take = takePPD},
        {.name = "--device-uri",
         .placeholder = "URI",
         .help = tr("where the --ppd printers are attached (usb://Sample/Tape)"),
         .text = &Line::deviceURI},
        {.name = "--output",
         .placeholder = "FOLDER",
         .kind = ValueKind::Folder,
         .help = tr("where printers without a queue print (out)"),
         .text = &Line::output},
        {.name = "--plugin",
         .placeholder = "PATH",
         .kind = ValueKind::Folder,
         .help = tr("the panel's bundle (PageSettings.plugin beside the program)"),
         .text = &Line::plugin},
        {.name = "--appearance",
         .placeholder = "LOOK",
         .help = tr("auto (as the desktop), light or dark"),
         .take = takeAppearance},

        {.name = "--print",
         .help = tr("print without a window"),
         .beginsSection = true,
         .flag = &Line::print},
        {.name = "--dry-run",
         .help = tr("say what would be printed, and print nothing"),
         .flag = &Line::dryRun},
        {.name = "--show-command",
         .help = tr("say the lp command that prints the same, and print nothing"),
         .flag = &Line::showCommand},
        {.name = "--list",
         .help = tr("list printers, tapes, limits and options; of one printer with --printer"),
         .flag = &Line::list},
        {.name = "--json", .help = tr("list as JSON"), .flag = &Line::json},
        {.name = "--check",
         .help = tr("look at the panel, the print server and the printers, and say what is wrong"),
         .flag = &Line::check},

        {.name = "--print-at-once",
         .help = tr("press Print as soon as the window is shown"),
         .beginsSection = true,
         .flag = &Line::printAtOnce},
        {.name = "--show-summary",
         .help = tr("start with the summary"),
         .flag = &Line::showSummary},
        {.name = "--screenshot",
         .placeholder = "FILE",
         .kind = ValueKind::File,
         .help = tr("draw the window to a PNG file and go on"),
         .text = &Line::screenshot},
        {.name = "--list-controls",
         .placeholder = "FILE",
         .kind = ValueKind::File,
         .help = tr("keep the names, places and values of the visible controls in FILE"),
         .text = &Line::listControls},

        {.name = "--help",
         .help = tr("show this text"),
         .beginsSection = true,
         .flag = &Line::help},
        {.name = "--version", .help = tr("show the program's version"), .flag = &Line::version},
    };
}

} // namespace dialog
