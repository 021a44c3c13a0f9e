// PopUp.h - filling pop-ups.
#pragma once

#include <AppKit/AppKit.h>

#include <string>
#include <vector>

namespace dialog {

// Every title as it is, equal ones too.  The first is selected; without any the pop-up is disabled.
// Any number of titles is for a LongPopUp.
void fillPopUp(NSPopUpButton* popUp, const std::vector<std::string>& titles);

} // namespace dialog
