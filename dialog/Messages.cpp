#include "dialog/Messages.hpp"

#include <initializer_list>

namespace dialog {

namespace {

std::string joined(std::initializer_list<std::string_view> parts)
{
    std::string sentence;
    for (const std::string_view part : parts) {
        sentence += part;
    }
    return sentence;
}

std::string quoted(std::string_view text)
{
    return joined({"\"", shown(text), "\""});
}

// ": reason." or "." when there is none; a reason's own full stop is not doubled.
std::string ending(std::string_view reason)
{
    std::string text = shown(reason);
    while (!text.empty() && (text.back() == '.' || text.back() == ' ')) {
        text.pop_back();
    }
    return text.empty() ? "." : joined({": ", text, "."});
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
    return {"No window can be opened: there is no display, or it does not answer.",
            ExitStatus::NoDisplay};
}

Failure bundleNotFound(std::string_view path)
{
    return {
        joined({"The Page Settings panel is missing: there is no bundle at ", quoted(path), "."}),
        ExitStatus::NoPanel};
}

Failure bundleNotLoadable(std::string_view path)
{
    return {joined({"The Page Settings panel is missing: the bundle ", quoted(path),
                    " could not be loaded."}),
            ExitStatus::NoPanel};
}

Failure bundleNotAPlugin(std::string_view path)
{
    return {joined({"The Page Settings panel is missing: the bundle ", quoted(path),
                    " is no print-dialog extension."}),
            ExitStatus::NoPanel};
}

Failure bundleRefusesSystem(std::string_view path)
{
    return {joined({"The Page Settings panel is missing: the bundle ", quoted(path),
                    " refuses this release of the operating system."}),
            ExitStatus::NoPanel};
}

Failure noPanelForType(std::string_view path)
{
    return {joined({"The Page Settings panel is missing: the bundle ", quoted(path),
                    " has no panel for the print dialog."}),
            ExitStatus::NoPanel};
}

Failure panelWithoutView(std::string_view path)
{
    return {joined({"The Page Settings panel is missing: the panel of the bundle ", quoted(path),
                    " has no view."}),
            ExitStatus::NoPanel};
}

Failure serverSilent(std::string_view server, std::string_view reason)
{
    return {joined({"The print server ", quoted(server), " does not answer", ending(reason)}),
            ExitStatus::NoPrinter};
}

Failure noSuchPrinter(std::string_view name)
{
    return {joined({"There is no printer named ", quoted(name), "."}), ExitStatus::NoPrinter};
}

Failure printerWithoutPPD(std::string_view name, std::string_view reason)
{
    return {joined({"The printer ", quoted(name), " offers no PPD", ending(reason)}),
            ExitStatus::BadPPD};
}

Failure noSuchPaper(std::string_view paper, std::string_view printer)
{
    return {joined({"The printer ", quoted(printer), " has no tape named ", quoted(paper), "."}),
            ExitStatus::NoPrinter};
}

Failure ppdNotReadable(std::string_view name, std::string_view reason)
{
    return {joined({"The PPD ", quoted(name), " cannot be read", ending(reason)}),
            ExitStatus::BadPPD};
}

Failure ppdRefused(std::string_view name, const PPDCheckResult& found)
{
    const std::string place =
        found.line == 0 ? std::string() : joined({" (line ", std::to_string(found.line), ")"});
    return {
        joined({"The PPD ", quoted(name), " is not used: ", reasonText(found.fault), place, "."}),
        ExitStatus::BadPPD};
}

Failure ppdDamaged(std::string_view name, int line, std::string_view reason)
{
    const std::string place =
        line <= 0 ? std::string() : joined({" in line ", std::to_string(line)});
    return {joined({"The PPD ", quoted(name), " is damaged", place, ending(reason)}),
            ExitStatus::BadPPD};
}

Failure documentNotReadable(std::string_view path, std::string_view reason)
{
    return {joined({"The document ", quoted(path), " cannot be read", ending(reason)}),
            ExitStatus::NoDocument};
}

Failure copiesNotUnderstood(std::string_view text)
{
    return {joined({"The number of copies must be a whole number from 1 to 999, not ", quoted(text),
                    "."}),
            ExitStatus::NotPrinted};
}

Failure panelHoldsJob()
{
    return {"The Page Settings panel holds the job back. Check its settings and print again.",
            ExitStatus::NotPrinted};
}

Failure jobRefused(std::string_view printer, std::string_view reason)
{
    return {joined({"The print server did not take the job for ", quoted(printer), ending(reason)}),
            ExitStatus::NotPrinted};
}

Failure outputNotWritten(std::string_view folder, std::string_view reason)
{
    return {joined({"Nothing could be printed into the folder ", quoted(folder), ending(reason)}),
            ExitStatus::NotPrinted};
}

Failure fileNotWritten(std::string_view path)
{
    return {joined({"The file ", quoted(path), " cannot be written."}), ExitStatus::NotWritten};
}

std::string jobSent(std::string_view printer, int jobId)
{
    return joined({"Printed on ", quoted(printer), " as job ", std::to_string(jobId), "."});
}

std::string jobWritten(std::string_view folder)
{
    return joined({"Printed into the folder ", quoted(folder), "."});
}

} // namespace dialog
