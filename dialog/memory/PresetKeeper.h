// PresetKeeper.h - the Presets pop-up and the memory behind it, for the dialog's controller.
#pragma once

#include "dialog/Messages.hpp"
#include "dialog/memory/NamePanel.h"
#include "dialog/memory/PresetSession.hpp"
#include "dialog/panel/PanelHost.h"

#include <AppKit/AppKit.h>

#include <memory>
#include <vector>

@protocol PresetOwner
- (PanelHost*)presetHost;
- (NSWindow*)presetWindow;
// Has the panel tell what it shows.
- (void)settlePresetValues;
// Opens the panel anew, for the same printer.
- (void)reopenWith:(const dialog::Start&)start;
// A sentence for the window; with a status when it is a failure.
- (void)presetsSay:(const dialog::Failure&)failure;
@end

@interface PresetKeeper : NSObject <NamePanelTaker>
{
    std::unique_ptr<dialog::PresetSession> session_;
    dialog::PresetAction asking_;
    NSPopUpButton* popUp_;
    std::vector<dialog::PresetEntry> entries_; // what the pop-up holds
    id<PresetOwner> owner_;                    // not owned
    BOOL isScript_;
    BOOL isOpen_; // there is a panel whose values count
}

// The pop-up's target becomes the keeper.
- (id)initWithCommandLine:(const dialog::CommandLine&)line
                    popUp:(NSPopUpButton*)popUp
                    owner:(id<PresetOwner>)owner;

// In this order: what the printer's panel starts with, the panel, what came of it.
- (dialog::Start)startOf:(const dialog::PrinterEntry&)printer
                   paper:(const std::string&)paper
                     ppd:(const dialog::PPDFile&)ppd;
- (void)panelDidOpen;
- (void)panelDidClose;

// The preset of the command line was for another printer.
- (void)userChosePrinter;
// YES when the panel was opened anew with the tape's last values.
- (BOOL)userChoseTape:(const std::string&)tape;
- (void)valuesMayHaveChanged;
// What is kept when the job that begins now has been taken.
- (void)jobBegins;
- (void)keepLastUsed;

@end
