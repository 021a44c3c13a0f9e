// DialogController+Printers.h - the printers on offer and the one that is open.
//
// Server, files and PPDs are waited for on other threads; the controller looks now and then what
// has come, and only while the user is doing nothing: no list or alert is open, nothing is dragged.
#pragma once

#include "dialog/DialogController.h"

@interface DialogController (Printers)

// Asks the print server; the answer may come later.
- (void)beginLooking;
// Shows what is known of the printers by now and opens one of them.
- (void)showFirstPrinters;

// Closes the printer that is open.  This one follows as soon as its PPD has come, perhaps at once.
- (void)openPrinter:(std::size_t)index paper:(const std::string&)paper;

// Nothing is waited for that could still change what the window shows.
- (BOOL)isSettled;

// The user's choice: the printer of that index, or the same once more when its PPD did not come.
- (void)chooseAnother:(std::size_t)index;

// Nothing of this outlives the dialog.
- (void)endLooking;

@end

// What it asks of the rest of the controller.
@interface DialogController (ForPrinters)
- (void)report:(const dialog::Failure&)failure;
- (void)checkDocument;
- (void)closePanel;
- (void)openPanel;
- (void)fillTapes;
- (void)actOnCommandLine;
@end
