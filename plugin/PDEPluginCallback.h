// PDEPluginCallback.h - what the print dialog answers and is told.
//
// The dialog hands an object of this kind to the panel factory; every handle and record that it
// answers stays the dialog's own and is borrowed while the panel lives.
#pragma once

#include <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <cups/ppd.h>

@protocol PDEPluginCallback13_v100_ <NSObject>

- (PMPrintSession)printSession;
- (PMPrintSettings)printSettings;
- (PMPageFormat)pageFormat;
- (PMPrinter)PMPrinter;

// The printer's open PPD, with the current choices marked; NULL when there is none.
- (ppd_file_t*)ppdFile;

// The job's option `key` (a PPD keyword) takes `choice`: the keyword of a listed choice, or a
// number in millimetres that the PPD does not list.
- (void)willChangePPDOptionKeyValue:(NSString*)key ppdChoice:(NSString*)choice;

@optional

// The panel's view has another size than before.
- (void)panelViewDidResize;

@end
