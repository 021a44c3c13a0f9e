// Host.h - a print dialog that keeps to nothing: it may answer nothing, answer late, call the panel
// inside a call of the panel's, and let go of it at any time.
#pragma once

#include "dialog/ppd/PPDFile.hpp"
#include "platform/PrintingHost.hpp"

#import <AppKit/AppKit.h>

#include <functional>
#include <string>

// What a dialog may send to a panel.
@protocol FuzzedPanel <NSObject>
- (id)initWithCallback:(id)callback andBundle:(NSBundle*)bundle;
- (NSView*)panelView;
- (NSString*)panelName;
- (NSString*)panelKind;
- (NSArray*)supportedPPDOptionKeys;
- (void)willShow;
- (BOOL)shouldHide;
- (BOOL)shouldPrint;
- (BOOL)shouldShowHelp;
- (void)printWindowWillClose:(BOOL)flag;
- (void)PPDOptionKeyValueDidChange:(NSString*)key ppdChoice:(NSString*)choice;
- (BOOL)saveValuesAndReturnError:(NSError**)error;
- (BOOL)restoreValuesAndReturnError:(NSError**)error;
- (NSDictionary*)summaryInfo;
- (void)updateUI;
- (void)updateUIItem:(int32_t)item;
- (void)updateMarkedSelections:(int32_t)item;
- (BOOL)checkValues:(BOOL)quietly;
- (void)controlTextDidChange:(NSNotification*)notification;
- (void)controlTextDidEndEditing:(NSNotification*)notification;
- (void)changeLength:(id)sender;
- (void)changeMargin:(id)sender;
- (void)changeQuality:(id)sender;
- (void)changeResolution:(id)sender;
- (void)changeCompress:(id)sender;
- (void)changeVnResolution:(id)sender;
@end

namespace fuzz {

struct Dialog
{
    dialog::PPDFile ppd;
    printing::Printer printer{"Label", "usb://Vendor/LabelPrinter"};
    printing::PageFormat format;
    printing::PrintSettings settings;
    printing::PrintSession session;

    // Each asked before every answer; empty ones answer and do nothing.
    std::function<bool()> isSilent;
    std::function<void()> whenTold;
    bool marks = true;

    // The paper that the PPD has marked, as its page format.
    void takePaper();
};

} // namespace fuzz

// Without the optional panelViewDidResize.
@interface FuzzHost : NSObject
{
  @public
    fuzz::Dialog* dialog; // not owned; nullptr once it is gone
}
@end

@interface FuzzResizingHost : FuzzHost
@end

namespace fuzz {

// A new panel, owned by the caller.
id<FuzzedPanel> newPanel(id host);

// The control of that instance variable; nil when the view is not loaded.
id control(id panel, const char* name);

// What holds of every summary: titles and values are texts, and every title has a value.
void requireWholeSummary(NSDictionary* summary);

} // namespace fuzz
