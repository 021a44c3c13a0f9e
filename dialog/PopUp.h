// PopUp.h - filling pop-ups.
#pragma once

#include <AppKit/AppKit.h>

#include <string>
#include <vector>

namespace dialog {

// Every title as it is, equal ones too.  The first is selected; without any the pop-up is disabled.
// Any number of titles is for a LongPopUp.
void fillPopUp(NSPopUpButton* popUp, const std::vector<std::string>& titles);

// Another title for an item of a pop-up whose list is not open.  What the closed pop-up shows is
// not changed: synchronizeTitleAndSelectedItem does that.
void retitle(NSMenuItem* item, NSString* title);

} // namespace dialog
