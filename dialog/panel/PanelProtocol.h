// PanelProtocol.h - what print-dialog extensions and the print dialog say to each other.
//
// The dialog loads an extension by path and knows nothing of it but these methods.
#pragma once

#include <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>

#include <cups/ppd.h>

// The type under which the print dialog, and not the page set-up dialog, asks for panels.
#define kPrintDialogPanelType @"BDB091F4-E57F-11D3-B5CC-0050E4603277"

// The key of the summary under which its titles stand in order.
#define kSummaryDisplayOrder @"Summary Display Order"

// The principal object of an extension.  initWithBundle: answers whether the extension may be
// used; the object is the one that alloc gave.
@protocol PrintDialogExtension <NSObject>
- (BOOL)initWithBundle:(NSBundle*)bundle;
- (NSArray*)PDEPanelsForType:(NSString*)type withHostInfo:(id)callback;
@end

@protocol PrintDialogPanel <NSObject>
- (NSView*)panelView;
- (NSString*)panelName;
- (NSString*)panelKind;
- (NSArray*)supportedPPDOptionKeys;
- (void)willShow;
- (BOOL)shouldHide;
- (BOOL)shouldPrint;
- (void)printWindowWillClose:(BOOL)flag;
- (void)PPDOptionKeyValueDidChange:(NSString*)key ppdChoice:(NSString*)choice;
- (void)updateUI;
- (BOOL)saveValuesAndReturnError:(NSError**)error;
- (BOOL)restoreValuesAndReturnError:(NSError**)error;
- (NSDictionary*)summaryInfo;
@end

// The dialog's side, for the panel.
@protocol PDEPluginCallback13_v100_ <NSObject>
- (PMPrintSession)printSession;
- (PMPrintSettings)printSettings;
- (PMPageFormat)pageFormat;
- (PMPrinter)PMPrinter;
- (ppd_file_t*)ppdFile;
- (void)willChangePPDOptionKeyValue:(NSString*)key ppdChoice:(NSString*)choice;
@optional
- (void)panelViewDidResize;
@end
