#include "dialog/twin/JobCommand.hpp"

#include "dialog/twin/LpCommand.hpp"

namespace dialog {

Failure jobCommand(const PrinterEntry& printer, const std::string& title,
                   const std::vector<JobOption>& options, const std::string& document,
                   std::string& command)
{
    if (printer.kind != PrinterKind::Queue) {
        return noCommandWithoutQueue(printer.name);
    }
    if (document.empty()) {
        return noCommandWithoutDocument();
    }
    const auto line = lpCommand({printer.name, title, options, document});
    if (!line) {
        return noCommandForOptions();
    }
    command = *line;
    return {};
}

} // namespace dialog
