// FeaturesController.h - the printer's features beside the panel: choices made in one are heard by
// the other, and choices that do not go together are said with a way out.
#pragma once

#include "dialog/DialogWindow.h"
#include "dialog/Messages.hpp"
#include "dialog/SummaryLines.hpp"
#include "dialog/features/Constraints.hpp"
#include "dialog/features/Features.hpp"
#include "dialog/features/FeaturesPane.h"
#include "dialog/features/Resolving.hpp"
#include "dialog/panel/PanelHost.h"
#include "dialog/panel/PanelLoader.h"

#include <string>
#include <vector>

@interface FeaturesController : NSObject <FeaturesPaneTarget>
{
    DialogWindow* window_; // not owned
    PanelHost* host_;      // owned, as the panel is; nil while no printer is open
    LoadedPanel* panel_;   // nil when there is no panel
    FeaturesPane* pane_;   // made when it is first shown
    dialog::Features offered_;
    dialog::Constraints constraints_;
    std::vector<dialog::Change> remedy_; // what the button of the conflict does
    dialog::ChoiceOrder order_;
}

- (id)initWithWindow:(DialogWindow*)window;

- (void)openHost:(PanelHost*)host panel:(LoadedPanel*)panel;
// The first values are set.
- (void)start;
- (void)close;

- (BOOL)hasFeatures;
// Shows what is chosen now.  The view takes `size`.
- (NSView*)viewOfSize:(NSSize)size;

// An option has another choice, wherever it was made.
- (void)optionDidChange:(const std::string&)keyword;

// What the button of the conflict says.
- (void)resolveConflict;

// The chosen features that the panel's own summary does not list.
- (void)appendSummaryTo:(std::vector<dialog::SummaryLine>&)lines;

// Why the job must not be printed as it is.
- (dialog::Failure)conflict;

@end
