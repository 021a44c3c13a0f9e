#include "dialog/printers/Printers.hpp"

#include "dialog/Translate.hpp"

namespace dialog {

namespace {

// "labels" of "ppds/labels.ppd".
std::string nameOfPPD(std::string_view path)
{
    const std::size_t slash = path.rfind('/');
    std::string_view name = slash == path.npos ? path : path.substr(slash + 1);
    if (name.size() > 4 && name.ends_with(".ppd")) {
        name.remove_suffix(4);
    }
    return std::string(name);
}

} // namespace

std::vector<PrinterEntry> printersToOffer(const CommandLine& line, const std::vector<Queue>& queues)
{
    std::vector<PrinterEntry> printers;
    printers.reserve(line.ppdFiles.size() + queues.size() + 1);
    for (const std::string& path : line.ppdFiles) {
        const std::string name = nameOfPPD(path);
        printers.push_back({PrinterKind::PPDFile, name, filled(tr("{1} (PPD file)"), {name}),
                            line.deviceURI, path});
    }
    for (const Queue& queue : queues) {
        const std::string& title = queue.info.empty() ? queue.name : queue.info;
        printers.push_back({PrinterKind::Queue, queue.name, title, queue.deviceURI, {}});
    }
    printers.push_back({PrinterKind::Sample,
                        std::string(kSamplePrinter),
                        filled(tr("{1} (prints into a folder)"), {kSamplePrinter}),
                        "usb://Sample/Tape",
                        {}});
    return printers;
}

std::optional<std::size_t> findPrinter(const std::vector<PrinterEntry>& printers,
                                       std::string_view name) noexcept
{
    for (std::size_t i = 0; i < printers.size(); ++i) {
        if (printers[i].name == name) {
            return i;
        }
    }
    for (std::size_t i = 0; i < printers.size(); ++i) {
        if (!printers[i].ppdPath.empty() && printers[i].ppdPath == name) {
            return i;
        }
    }
    return std::nullopt;
}

} // namespace dialog
