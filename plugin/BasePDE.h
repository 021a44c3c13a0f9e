// BasePDE.h - the base of every panel: the print dialog's panel protocol on one side, hooks for a
// concrete panel on the other.
//
// A panel is made by the factory (PlugIn.h) with the dialog's callback object.  The dialog then
// asks for panelView, panelName, panelKind and supportedPPDOptionKeys, calls willShow, and later
// reports changes, saves, restores, asks for the summary and whether the job may print.  A concrete
// panel overrides the hooks; the base's do nothing unless stated.
//
// Main thread only.  Failures are answered by nil, NO or an index, never by an exception; what the
// dialog raises in a method of its own counts as no answer.
#pragma once

#include "plugin/PDEPluginCallback.h"

#include <AppKit/AppKit.h>
#include <ApplicationServices/ApplicationServices.h>
#include <cups/ppd.h>

#include <cstdint>

@class PDEChoice;

@interface BasePDE13_v100_ : NSObject
{
    id<PDEPluginCallback13_v100_> pdePluginCallbackObject; // owned
    IBOutlet NSView* kPDEView;                             // released in dealloc
    NSString* thePDEName;                                  // owned; made on first request
    NSBundle* nsPDEBundle;                                 // owned
    ppd_file_t* ppd;                                       // borrowed from the dialog
    PMPrintSession printSession;                           // borrowed
    PMPrintSettings pmPrintSettings;                       // borrowed
    void* printSettings;                                   // the same handle, untyped
    void* formatSettings;                                  // the page format, untyped; borrowed
    PMPrinter printer;                                     // borrowed
    char deviceURI[256];                                   // system encoding; "" when unknown
    NSMutableArray* mSupportedOptions;                     // owned; PPD option keywords
    int32_t mLoadedNibFlg;                                 // unused
    int32_t mFormattedItemFlg;                             // unused
}

// The print dialog's side.

- (id)initWithCallback:(id)callback andBundle:(NSBundle*)bundle;
- (NSView*)panelView;
- (NSString*)panelName;
- (NSString*)panelKind;
- (NSArray*)supportedPPDOptionKeys;
- (void)printWindowWillClose:(BOOL)flag;
- (void)willShow;
- (BOOL)shouldHide;
- (BOOL)shouldPrint;
- (BOOL)shouldShowHelp;
- (void)PPDOptionKeyValueDidChange:(NSString*)key ppdChoice:(NSString*)choice;
- (BOOL)restoreValuesAndReturnError:(NSError**)error; // never writes the error
- (BOOL)saveValuesAndReturnError:(NSError**)error;    // never writes the error
- (NSDictionary*)summaryInfo;

// Hooks.

- (void)updateUI; // calls setPDEItems
- (void)initSetTitleTexts;
- (void)initUI;
- (void)getValuesFromKey;
- (void)setValuesToKey;
- (void)setPDEItems;
- (void)setPDEItems2;
- (void)updateUIItem:(int32_t)itemType;
- (void)updateMarkedSelections:(int32_t)itemType;
- (int32_t)indexForSummary:(int32_t)itemType; // 0

// Services for a concrete panel.

// The PPD's "FileVersion"; nil without a PPD.
- (NSString*)fileVerString;

// Whether the PPD's "VnTapeType" is exactly "ZR".
- (BOOL)isZRPrinter;

// Tells the dialog of the choice at `index` and has the marks read back.  nil, and nothing told,
// when the index is outside the list.
- (PDEChoice*)selectionForItem:(NSInteger)index
                           key:(NSString*)key
                       choices:(NSArray*)choices
                      itemType:(int32_t)itemType;

// -1 when the PPD has no marked choice; 0 when the marked one is not in the list.
- (NSInteger)indexOfMarkedOption:(NSArray*)choices forKey:(NSString*)key;

// 0 for an empty list, -1 for a list without a default.
- (NSInteger)indexOfDefaultOption:(NSArray*)choices;

- (void)setSupportedOptions:(NSMutableArray*)options;
- (NSMutableArray*)supportedOptions;

// Resizes the panel's view, and has the dialog told at once or when it has grown.  Nothing happens
// with a dialog that does not want to know (no panelViewDidResize).
- (void)setViewFrameSize:(NSSize)size;
- (void)dialogDidExpand:(NSNotification*)notification;

// Has the dialog mark the option's default choice where no choice is marked.
- (void)setDefaultChoices:(ppd_option_t*)option
                  choices:(NSArray*)choices
                  cStrKey:(const char*)cStrKey
                  nStrKey:(NSString*)nStrKey;

// Tells the dialog of an option's new choice; nothing is told when either is nil.
- (void)tellDialogOption:(NSString*)key choice:(NSString*)choice;
- (void)tellDialogOfResize;

// The text for a key in the bundle's strings table, the key itself where it has none.
- (NSString*)localized:(NSString*)key;

@end
