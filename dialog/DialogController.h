// DialogController.h - the road of one print dialog: printers, panel, print, close.
#pragma once

#include "dialog/CommandLine.hpp"
#include "dialog/DialogWindow.h"
#include "dialog/ExitStatus.hpp"
#include "dialog/Messages.hpp"
#include "dialog/Panes.hpp"
#include "dialog/background/JobSender.hpp"
#include "dialog/background/PrinterFinder.hpp"
#include "dialog/background/PrinterOpener.hpp"
#include "dialog/features/FeaturesController.h"
#include "dialog/memory/PresetKeeper.h"
#include "dialog/panel/PanelHost.h"
#include "dialog/panel/PanelLoader.h"
#include "dialog/preview/LabelPreview.h"
#include "dialog/printers/Printers.hpp"

#include <AppKit/AppKit.h>

#include <memory>
#include <string>
#include <vector>

@interface DialogController : NSObject <DialogActions, PanelHostDelegate, PresetOwner>
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
    FeaturesController* features_;
    std::vector<dialog::Pane> panes_;                 // as the chooser lists them
    std::unique_ptr<dialog::PictureRequest> picture_; // of the document, until there is a preview
    LabelPreview* preview_;
    PresetKeeper* presets_;
    NSTimer* listing_;
    std::unique_ptr<dialog::PrinterFinder> finder_;
    dialog::PrinterOpener opener_;
    dialog::JobSender sender_;
    dialog::JobPhase phaseShown_; // by the window's controls
    std::string paperToOpen_;     // the tape that the printer being opened is to start with
    std::string hint_;            // that was last shown on the search for printers
    BOOL isOpen_;                 // the current printer's PPD is there
    BOOL paperIsUnchecked_;
    BOOL openingIsSaid_; // that the current printer is being opened
    BOOL hasActed_;
    BOOL wasShown_; // and what waits for that may begin
}

// `line` was understood.  Asks the print server and has the document read, which goes on while the
// application object is made; that need not be there yet.
- (id)initWithCommandLine:(const dialog::CommandLine&)line;

// What the shell is to be told once the application has stopped.
- (dialog::ExitStatus)status;

@end
