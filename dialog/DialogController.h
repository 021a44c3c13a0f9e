// DialogController.h - the road of one print dialog: printers, panel, print, close.
#pragma once

#include "dialog/CommandLine.hpp"
#include "dialog/DialogWindow.h"
#include "dialog/ExitStatus.hpp"
#include "dialog/Messages.hpp"
#include "dialog/PanelHost.h"
#include "dialog/PanelLoader.h"
#include "dialog/Printers.hpp"

#include <AppKit/AppKit.h>

@interface DialogController : NSObject <DialogActions, PanelHostDelegate>
{
    dialog::CommandLine line_;
    std::vector<dialog::PrinterEntry> printers_;
    std::vector<dialog::PPDFile::Size> sizes_;
    dialog::Failure panelFailure_; // why there is no panel
    dialog::ExitStatus status_;
    std::size_t current_; // among printers_
    DialogWindow* window_;
    PanelHost* host_;
    LoadedPanel* loaded_; // nil when there is no panel
    NSTimer* listing_;
}

// `line` was understood.
- (id)initWithCommandLine:(const dialog::CommandLine&)line;

// What the shell is to be told once the application has stopped.
- (dialog::ExitStatus)status;

@end
