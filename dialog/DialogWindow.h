// DialogWindow.h - the window: controls made and placed, nothing decided.
//
// The controller is the target of every control and the window's delegate.  The pane in the middle
// holds the panel's view, the summary, or a sentence.
#pragma once

#include "dialog/Layout.hpp"
#include "dialog/SummaryLines.hpp"
#include "dialog/background/JobPhase.hpp"
#include "dialog/features/ConflictBar.h"
#include "dialog/keyboard/KeyboardWindow.h"

#include <AppKit/AppKit.h>

#include <cstdint>
#include <string>
#include <vector>

@protocol DialogActions
- (void)choosePrinter:(id)sender;
- (void)chooseTape:(id)sender;
- (void)choosePane:(id)sender;
- (void)stepCopies:(id)sender;
- (void)cancelDialog:(id)sender;
- (void)printDialog:(id)sender;
- (void)copyCommand:(id)sender;
- (void)resolveConflict:(id)sender;
@end

@class ListKeepingWindow;
@class LabelPreview;

@interface DialogWindow : NSObject <KeyboardParts>
{
    ListKeepingWindow* window_;
    NSPopUpButton* printer_;
    NSPopUpButton* tape_;
    NSPopUpButton* presets_;
    NSPopUpButton* chooser_;
    NSTextField* printerLabel_;
    NSTextField* tapeLabel_;
    NSTextField* presetsLabel_;
    NSTextField* copiesLabel_;
    NSTextField* copies_;
    NSStepper* stepper_;
    NSTextField* message_;
    NSProgressIndicator* progress_;
    NSBox* box_;
    ConflictBar* conflict_; // hidden while there is none
    NSButton* copyCommand_;
    NSButton* cancel_;
    NSButton* print_;
    NSView* pane_; // what is shown in the middle; owned
    NSSize paneSize_;
    dialog::WordWidths words_;
    LabelPreview* preview_; // owned
}

- (id)initWithController:(id<DialogActions>)controller;

- (NSWindow*)window;

// What a key would act on; nil when there is nothing.
- (NSView*)focusedView;
// Ends what is being typed; any other control keeps the keyboard.
- (void)endTyping;
// Ends what is being typed; nothing happens for nil.
- (void)giveKeyboardTo:(NSView*)control;

- (NSPopUpButton*)printerPopUp;
- (NSPopUpButton*)tapePopUp;
- (NSPopUpButton*)presetsPopUp; // its target is set by whoever fills it
- (NSPopUpButton*)chooser;
- (NSTextField*)copiesField;
- (NSStepper*)stepper;
- (NSTextField*)messageField;
- (NSButton*)printButton;

// Every title as it is, equal ones too.
- (void)fill:(NSPopUpButton*)popUp with:(const std::vector<std::string>&)titles;

// The window takes the size that the view asks for, its top left corner staying where it is.
- (void)showPanelView:(NSView*)view;
- (void)panelViewDidResize;
// These take the room there is.
- (void)showSummary:(const std::vector<dialog::SummaryLine>&)lines title:(NSString*)title;
- (void)showSentence:(NSString*)sentence;
- (void)showView:(NSView*)view;
- (NSSize)paneSize; // the room there is

// A line below the box; nil takes it away.  An empty remedy leaves out the button.
- (void)showConflict:(NSString*)sentence remedy:(NSString*)title;

// Beside the pane, from then on.
- (void)showPreview:(LabelPreview*)preview;

- (BOOL)hasOpenList;
// NO when no pop-up's list was open.
- (BOOL)closeOpenList;
// The same, and chooses the entry that the keyboard has come to.
- (BOOL)takeFromOpenList;

// Whether a key or a mouse button has been pressed in the window.
- (BOOL)wasTouched;

- (void)showMessage:(NSString*)text isFailure:(BOOL)isFailure;

// What a job on its way leaves to the user, and how much of it has been sent (0 to 1).
- (void)offer:(const dialog::JobOffer&)offer;
- (void)showProgress:(double)fraction;

// The inside of the window as a PNG; NO when it could not be written.
- (BOOL)writePicture:(NSString*)path;

// One line for each control that can be seen: its name, the screen frame of what can be clicked
// (pixels; left, top, width, height), "enabled" or "disabled", "on" or "off", what it is called for
// assistive technology, and its text; tabs between them.  A line named Focus comes first when a key
// would act on a control.
- (NSString*)visibleControls;

@end
