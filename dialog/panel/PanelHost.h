// PanelHost.h - the dialog as a panel sees it: one printer, its PPD, the tape and the job's
// options.
//
// A host belongs to one printer; choosing another printer makes another host.  The panel borrows
// every handle, and retains the host while it lives.
#pragma once

#include "dialog/job/JobOptions.hpp"
#include "dialog/job/WantedOptions.hpp"
#include "dialog/panel/PanelProtocol.h"
#include "dialog/ppd/PPDFile.hpp"

#include <memory>
#include <string>
#include <utility>
#include <vector>

@protocol PanelHostDelegate
- (void)panelViewDidResize;
// The panel has chosen something; options has it already.
- (void)panelDidTellOption;
// Another choice of the option is marked in the PPD.
- (void)optionDidChange:(const std::string&)keyword;
@end

namespace dialog {
struct HostState;
} // namespace dialog

@interface PanelHost : NSObject <PDEPluginCallback13_v100_>
{
    std::unique_ptr<dialog::HostState> state_;
    id<PanelHostDelegate> delegate_; // not owned; may be nil
}

// `paper` names the tape to start with; empty, or not among the PPD's, the PPD's default.  Lengths
// among `wanted` go into the paper and the PPD record at once, because a panel starts from there.
- (id)initWithPrinter:(const std::string&)name
            deviceURI:(const std::string&)uri
                  ppd:(dialog::PPDFile)ppd
                paper:(const std::string&)paper
               wanted:(const dialog::WantedOptions&)wanted;

- (void)setDelegate:(id<PanelHostDelegate>)delegate;

- (const dialog::PPDFile&)ppd;
- (const dialog::JobOptions&)options;
- (std::string)paperName; // empty without a PPD

// The wanted choices that the PPD lists, and options it does not know, after the panel's first
// show, which starts from the defaults.
- (void)applyWanted;

// A choice made in the dialog goes into the PPD record and the job.
- (void)chooseOption:(const std::string&)keyword choice:(const std::string&)choice;

// NO when the PPD has no such tape.
- (BOOL)choosePaper:(const std::string&)paper;

@end
