// Handing what the panel shows to the dialog, as PPD option keyword and choice text.
//
// Length and margin are numbers that no PPD lists, always in millimetres.

#include "pagesettings/ChoiceRules.hpp"
#include "pagesettings/Controls.h"
#include "pagesettings/PageSettingPDE.h"
#include "pagesettings/Saving.hpp"
#include "ppd/ChoiceLookup.hpp"
#include "ppd/Keywords.hpp"
#include "ppd/PDEChoice.h"
#include "ppd/PDEUtilsMethod13.h"
#include "ppd/PPDText.h"

using pagesettings::FieldValue;
using pagesettings::PanelRules;
using pagesettings::setEnabled;
using pagesettings::ShownPaper;
using pagesettings::string;
using pagesettings::valueOf;

@implementation PageSettingPDE13_v100_ (VNKMZRPS_Save)

#pragma mark Length

- (void)saveSetting_Length
{
    if (!printSettings)
        return;
    TapeInfo tape = {};
    // Not even a default when the dialog raises: what was saved last stands.
    if (![self readTape:&tape])
        return;
    if (tape.paperName)
        CFRelease(tape.paperName);
    [self setTapeState:tape.state];

    const PanelRules rules = [self rules];
    const double length = [self lengthToSaveFor:tape.length rules:rules];
    [self
        tellDialogOption:[NSString stringWithUTF8String:ppd::kTapeLengthOption]
                  choice:string(pagesettings::savedLengthText(length, [self getTapeState], rules))];
}

- (double)lengthToSaveFor:(double)paperLength rules:(const PanelRules&)rules
{
    const FieldValue field = valueOf(mLengthTxFld);
    const ShownPaper paper =
        pagesettings::shownPaper(paperLength, choice_PaperSize, field.asFloat, rules);
    if (!mLengthTxFld)
        return pagesettings::lengthOfPaper(paper.text, rules);

    if (paper.replacesField)
        [mLengthTxFld setStringValue:string(paper.text)];
    choice_PaperSize = paper.value;
    [self enableLengthAndMargin];
    return paper.replacesField ? pagesettings::lengthOfPaper(paper.text, rules)
                               : pagesettings::lengthOfField(field, rules);
}

// A label of fixed length locks both groups; a printer without a margin option, the margin's.
- (void)enableLengthAndMargin
{
    const BOOL isEditable = [self getTapeState] == 0;
    setEnabled(mLengthTxFld, isEditable);
    setEnabled(mLengthSlider, isEditable);
    NSColor* const lengthColour = [PDEUtilsMethod13 colourForText:isEditable];
    for (NSTextField* label : {mLengthStr, mLengthMinStr, mLengthMaxStr, mLengthUnitStr})
        [PDEUtilsMethod13 setColour:lengthColour ofText:label];

    const BOOL hasMargin = [self getTapeState] == 0 && mMargin_Option;
    setEnabled(mMarginTxFld, hasMargin);
    setEnabled(mMarginSlider, hasMargin);
    NSColor* const marginColour = [PDEUtilsMethod13 colourForText:hasMargin];
    for (NSTextField* label : {mMarginStr, mMarginMinStr, mMarginMaxStr, mMarginUnitStr})
        [PDEUtilsMethod13 setColour:marginColour ofText:label];
}

#pragma mark Margin

- (void)saveSetting_Margin
{
    if (!printSettings || !mMargin_Option)
        return;
    const PanelRules rules = [self rules];
    NSString* const standard = ppd::string(mMargin_Option->defchoice, ppd::systemEncoding());
    const double margin =
        mMarginTxFld
            ? pagesettings::marginOfField(valueOf(mMarginTxFld), rules)
            : pagesettings::marginOfDefault(pagesettings::valueOfText(standard).asDouble, rules);
    [self
        tellDialogOption:ppd::string(mMargin_Option->keyword, NSUTF8StringEncoding)
                  choice:string(pagesettings::savedMarginText(margin, [self getTapeState], rules))];
}

#pragma mark Choices

- (void)saveSetting_Quality
{
    [self saveChoiceOf:mQuality_Option choices:mQuality_Choices key:ppd::kQualityOption
                  from:mPrintQualityRdBtn
                 index:[self indexForSaveQuality:mPrintQualityRdBtn]];
}

- (void)saveSetting_Resolution
{
    [self saveChoiceOf:mResolution_Option choices:mResolution_Choices key:ppd::kResolutionOption
                  from:mResolutionRdBtn
                 index:[mResolutionRdBtn selectedRow]];
}

- (void)saveSetting_Compress
{
    [self saveChoiceOf:mCompress_Option choices:mCompress_Choices key:ppd::kCompressOption
                  from:mCompressRdBtn
                 index:[mCompressRdBtn selectedRow]];
}

- (void)saveSetting_VnResolution
{
    [self saveChoiceOf:mVnResolution_Option choices:mVnResolution_Choices key:ppd::kPrintModeOption
                  from:mVnResolutionPUBtn
                 index:[mVnResolutionPUBtn indexOfSelectedItem]];
}

// `index` is what the control says; before there is a control the PPD's mark decides.
- (void)saveChoiceOf:(const ppd_option_t*)option
             choices:(NSArray*)choices
                 key:(const char*)key
                from:(NSControl*)control
               index:(NSInteger)index
{
    if (!choices || !printSettings || !option)
        return;
    if (!control)
        index = [self indexOfMarkedOrDefault:choices key:key];
    const auto chosen = ppd::indexToSave(index, [choices count]);
    if (!chosen)
        return;
    const ppd_choice_t* const choice = [[choices objectAtIndex:*chosen] choice];
    [self tellDialogOption:ppd::string(option->keyword, NSUTF8StringEncoding)
                    choice:choice ? ppd::string(choice->choice, NSUTF8StringEncoding) : nil];
}

- (int32_t)indexForSaveQuality:(id)control
{
    if (![control respondsToSelector:@selector(selectedRow)])
        return 0;
    return static_cast<int32_t>(
        pagesettings::qualityRowToSave([control selectedRow], [mResolutionRdBtn selectedRow]));
}

#pragma mark Rounding

- (int32_t)vnCeilInteger:(float)value
{
    return pagesettings::roundedUp(value);
}

- (double)vnCeildouble:(float)value
{
    return pagesettings::roundedUpToTenths(value);
}

@end

@implementation PageSettingPDE13_v100_ (Printing)

- (BOOL)shouldPrint
{
    [self saveSetting_Length];
    [self setDefaultChoices:mQuality_Option choices:mQuality_Choices cStrKey:ppd::kQualityOption
                    nStrKey:@"VnPriority"];
    [self setDefaultChoices:mResolution_Option choices:mResolution_Choices
                    cStrKey:ppd::kResolutionOption
                    nStrKey:@"Resolution"];
    [self setDefaultChoices:mVnResolution_Option choices:mVnResolution_Choices
                    cStrKey:ppd::kPrintModeOption
                    nStrKey:@"VnResolution"];
    [self setDefaultChoices:mCompress_Option choices:mCompress_Choices cStrKey:ppd::kCompressOption
                    nStrKey:@"VnCompress"];
    [super shouldPrint];
    const BOOL answer = checkValues_dec == 1 ? [self checkValues:NO] : checkValues_dec;
    checkValues_dec = YES;
    return answer;
}

@end
