#include "dialog/CopyCommand.h"

#include "dialog/Clipboard.hpp"
#include "dialog/Text.h"
#include "dialog/twin/JobCommand.hpp"

#include <AppKit/AppKit.h>

namespace dialog {

Failure copyCommand(const JobTicket& job, const std::string& document)
{
    std::string command;
    if (const Failure failure =
            jobCommand(job.printer, job.title, job.options, document, command)) {
        return failure;
    }
    NSPasteboard* const pasteboard = [NSPasteboard generalPasteboard];
    [pasteboard declareTypes:@[ NSStringPboardType ] owner:nil];
    [pasteboard setString:toNSString(command) forType:NSStringPboardType];
    // Fields of this program paste it even where the desktop's clipboard cannot be had.
    copyToClipboard(command);
    return {};
}

} // namespace dialog
