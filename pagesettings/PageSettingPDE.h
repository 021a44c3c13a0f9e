// PageSettingPDE.h - the Page Settings panel: tape width, length, margin and the print choices.
//
// One class in one file a concern: the panel's life and layout (PageSettingPDE.mm), filling the
// controls (+initialize), what the controls send and the checks (+IBAction), saving (+Save),
// following the PPD's marks (+PPDChanges) and the summary (+Summary).  What they decide is in the
// plain C++ files beside them.
//
// Lengths are kept and saved in millimetres; inches exist on screen alone.
#pragma once

#include "pagesettings/PanelRules.hpp"
#include "plugin/BasePDE.h"
#include "tape/TapeInfo.h"
#include "textentry/PDETextField.h"

@interface PageSettingPDE13_v100_ : BasePDE13_v100_
{
    IBOutlet NSTextField* mWidthStr;
    IBOutlet NSTextField* mLengthStr;
    IBOutlet NSTextField* mMarginStr;
    IBOutlet NSTextField* mLengthUnitStr;
    IBOutlet NSTextField* mMarginUnitStr;
    IBOutlet NSTextField* mLengthMinStr;
    IBOutlet NSTextField* mLengthMaxStr;
    IBOutlet NSTextField* mMarginMinStr;
    IBOutlet NSTextField* mMarginMaxStr;
    IBOutlet NSSlider* mLengthSlider;
    IBOutlet NSSlider* mMarginSlider;
    IBOutlet NSTextField* mWidthTxFld;
    IBOutlet PDETextField13_v100_* mLengthTxFld;
    IBOutlet PDETextField13_v100_* mMarginTxFld;
    IBOutlet NSView* mSeparateLine1;
    IBOutlet NSTextField* mPrintQualityStr;
    IBOutlet NSMatrix* mPrintQualityRdBtn;
    IBOutlet NSTextField* mPrintResolutionStr;
    IBOutlet NSMatrix* mResolutionRdBtn;
    IBOutlet NSTextField* mPrintCompressStr;
    IBOutlet NSMatrix* mCompressRdBtn;
    IBOutlet NSTextField* mPrintVnResolutionStr;
    IBOutlet NSPopUpButton* mVnResolutionPUBtn;

    // One PDEChoice a choice; owned; nil when the PPD lacks the option.
    NSMutableArray* mQuality_Choices;
    NSMutableArray* mResolution_Choices;
    NSMutableArray* mCompress_Choices;
    NSMutableArray* mVnResolution_Choices;

    // Borrowed from the PPD; NULL when it lacks the option.
    ppd_option_t* mMargin_Option;
    ppd_option_t* mQuality_Option;
    ppd_option_t* mResolution_Option;
    ppd_option_t* mCompress_Option;
    ppd_option_t* mVnResolution_Option;

    // Entries of the lists above, not owned.
    PDEChoice* mQuality_Selection;
    PDEChoice* mResolution_Selection;
    PDEChoice* mCompress_Selection;
    PDEChoice* mVnResolution_Selection;

    int32_t mPDEUnit;          // of length and margin on screen: 0 millimetres, 1 inches
    int32_t mTapeState;        // 0: length and margin may be edited
    uint8_t usb_dec;           // the printer is on USB
    float choice_PaperSize;    // the last paper's length as shown, in the panel's unit
    uint8_t column_dec;        // the user typed since the last check
    uint8_t set_formatSetting; // the controls have been filled
    int8_t checkValues_dec;    // whether shouldPrint must check before printing
}

- (void)setPDEUnit:(int32_t)unit;
- (int32_t)getPDEUnit;
- (void)loadUnit;

// What the PPD asks for; NO and 0.0 where it says nothing.  Limits in millimetres.
- (BOOL)isIntegerTapeLen;
- (BOOL)isIntegerMarginLen;
- (float)minTapeLen;
- (float)maxTapeLen;
- (float)minMargin;
- (float)maxMargin;

// The panel is the delegate of its two entry fields.
- (void)controlTextDidChange:(NSNotification*)notification;
- (void)controlTextDidEndEditing:(NSNotification*)notification;

@end

// Filling the controls.
@interface PageSettingPDE13_v100_ (VNKMZRPS_initialize)

- (void)initializeUI_OtherStr;
- (void)initializeUI_Width;
- (void)initializeUI_Length;
- (void)initializeUI_Margin;
- (void)initializeUI_Quality;
- (void)initializeUI_Resolution;
- (void)initializeUI_Compress;
- (void)initializeUI_VnResolution;

// The quality group follows the resolution row.
- (void)enabledCheck_BS;

- (void)setTapeState:(int32_t)state;
- (int32_t)getTapeState;

@end

// What the controls send, and the checks of length and margin.
@interface PageSettingPDE13_v100_ (VNKMZRPS_IBAction)

- (IBAction)changeLength:(id)sender;
- (IBAction)changeMargin:(id)sender;
- (IBAction)changeQuality:(id)sender;
- (IBAction)changeResolution:(id)sender;
- (IBAction)changeCompress:(id)sender;
- (IBAction)changeVnResolution:(id)sender;

// Corrects the entries on screen; quietly means without the alert.  Answers whether they passed,
// which after a correction they do.
- (BOOL)checkValues:(BOOL)quietly;
- (BOOL)checkLengthByMargin:(BOOL)quietly;

// The height of one printed dot, in millimetres.
- (double)getOneDotMM;

- (double)MiriToInch:(double)millimetres;
- (double)InchToMiri:(double)inches;

@end

// Handing what the panel shows to the dialog.
@interface PageSettingPDE13_v100_ (VNKMZRPS_Save)

- (void)saveSetting_Length;
- (void)saveSetting_Margin;
- (void)saveSetting_Quality;
- (void)saveSetting_Resolution;
- (void)saveSetting_Compress;
- (void)saveSetting_VnResolution;

- (int32_t)indexForSaveQuality:(id)control;

- (int32_t)vnCeilInteger:(float)value;
- (double)vnCeildouble:(float)value; // to tenths

@end

// Following the PPD's marks.
@interface PageSettingPDE13_v100_ (PPDChanges)

// The marked choice's place in the list, failing a mark the default's.
- (NSInteger)indexOfMarkedOrDefault:(NSArray*)choices key:(const char*)key;

@end

// The dialog's summary.
@interface PageSettingPDE13_v100_ (Summary)

// 0 for every keyword.
- (int32_t)indexForSummary:(const char*)keyword;

@end

// What the concerns share.
@interface PageSettingPDE13_v100_ (Shared)

// The PPD's rules for length and margin.
- (pagesettings::PanelRules)rules;

// The selected tape, asked anew of the dialog, with the framework's status where it is asked for.
// NO, and the tape that stands in for an unreadable one, when the dialog raises.  The caller owns
// the name.
- (BOOL)readTape:(TapeInfo*)tape;
- (BOOL)readTape:(TapeInfo*)tape status:(OSStatus*)status;

// The PPD's choice `index` of an option has a title worth showing, else nil.
- (NSString*)titleOfChoice:(NSInteger)index ofOption:(ppd_option_t*)option;
- (NSString*)titleOfOption:(ppd_option_t*)option;

// The width of the named paper, as the PPD words it, or that it is not known.
- (NSString*)tapeWidthTextForPaper:(CFStringRef)paperName;

@end
