// What the controls send, and the checks that keep length and margin within the limits and apart.
//
// The fields hold the values of record, the sliders follow them.

#include "pagesettings/ChoiceRules.hpp"
#include "pagesettings/Controls.h"
#include "pagesettings/DisplayText.hpp"
#include "pagesettings/PageSettingPDE.h"
#include "pagesettings/PrinterDot.hpp"
#include "pagesettings/Validation.hpp"
#include "ppd/ChoiceLookup.hpp"
#include "ppd/Keywords.hpp"
#include "ppd/PPDText.h"
#include "tape/TapeInfo.h"

using pagesettings::Correction;
using pagesettings::FieldValue;
using pagesettings::NumberText;
using pagesettings::PanelRules;
using pagesettings::string;
using pagesettings::valueOf;

// Writing what a field shows already would end an edit in it and select the text.
static void showText(NSTextField* field, const NumberText& text)
{
    NSString* const shown = string(text);
    if (![[field stringValue] isEqualToString:shown])
        [field setStringValue:shown];
}

static void show(const Correction& correction, NSTextField* field, NSSlider* slider)
{
    showText(field, correction.text);
    pagesettings::showValue(slider, pagesettings::narrowed(correction.value));
}

@implementation PageSettingPDE13_v100_ (VNKMZRPS_IBAction)

#pragma mark Sliders

- (IBAction)changeLength:(id)sender
{
    const PanelRules rules = [self rules];
    showText(mLengthTxFld, pagesettings::cutTextInUnit([mLengthSlider floatValue], rules.unit,
                                                       rules.wholeLengths));
    [self checkAfterSlider:sender];
}

- (IBAction)changeMargin:(id)sender
{
    const PanelRules rules = [self rules];
    showText(mMarginTxFld, pagesettings::roundedUpTextInUnit([mMarginSlider floatValue], rules.unit,
                                                             rules.wholeMargins));
    [self checkAfterSlider:sender];
}

// Nothing is checked while a slider is dragged: an alert would tear it from the user's hand.
- (void)checkAfterSlider:(id)sender
{
    const NSEventType cause = [[NSApp currentEvent] type];
    if (sender && (cause == NSLeftMouseUp || cause == NSKeyDown))
        [self checkValues:NO];
}

#pragma mark Choices

- (IBAction)changeQuality:(id)sender
{
    [self choose:[mPrintQualityRdBtn selectedRow] of:ppd::kQualityOption choices:mQuality_Choices
            item:pagesettings::kQualityItem];
    [self checkAfterChoice:sender];
}

- (IBAction)changeResolution:(id)sender
{
    [self choose:[mResolutionRdBtn selectedRow] of:ppd::kResolutionOption
         choices:mResolution_Choices
            item:pagesettings::kResolutionItem];
    [self enabledCheck_BS];
    [self checkAfterChoice:sender];
}

- (IBAction)changeCompress:(id)sender
{
    [self choose:[mCompressRdBtn selectedRow] of:ppd::kCompressOption choices:mCompress_Choices
            item:pagesettings::kCompressItem];
    [self enabledCheck_BS];
    [self checkAfterChoice:sender];
}

- (IBAction)changeVnResolution:(id)sender
{
    [self choose:[mVnResolutionPUBtn indexOfSelectedItem] of:ppd::kPrintModeOption
         choices:mVnResolution_Choices
            item:pagesettings::kPrintModeItem];
    [self enabledCheck_BS];
    [self checkAfterChoice:sender];
}

- (void)choose:(NSInteger)index of:(const char*)keyword choices:(NSArray*)choices item:(int32_t)item
{
    [self selectionForItem:index key:[NSString stringWithUTF8String:keyword] choices:choices
                  itemType:item];
    [self updateUIItem:item];
}

- (void)checkAfterChoice:(id)sender
{
    if (sender)
        [self checkValues:NO];
}

#pragma mark Checks

- (BOOL)checkValues:(BOOL)quietly
{
    const bool isFilling = formatSettings != printSettings && set_formatSetting != 1;
    if (isFilling || [self getTapeState] != 0) {
        checkValues_dec = YES;
        return YES;
    }
    const PanelRules rules = [self rules];
    const FieldValue length = valueOf(mLengthTxFld);
    if (pagesettings::mayStandWhileTyping(column_dec, length.asFloat, valueOf(mMarginTxFld).asFloat,
                                          rules)) {
        column_dec = NO;
        checkValues_dec = YES;
        return YES;
    }
    show(pagesettings::correctedLength(length, rules), mLengthTxFld, mLengthSlider);
    const BOOL passed = [self checkLengthByMargin:quietly];
    column_dec = NO;
    checkValues_dec = passed;
    return passed;
}

- (BOOL)checkLengthByMargin:(BOOL)quietly
{
    if (!mMargin_Option)
        return YES;
    const PanelRules rules = [self rules];
    const Correction margin = pagesettings::correctedMargin(valueOf(mMarginTxFld), rules);
    show(margin, mMarginTxFld, mMarginSlider);
    if (!pagesettings::isMarginTooWide(margin.value, valueOf(mLengthTxFld).asFloat))
        return YES;

    if (!quietly)
        [self alertThatMarginIsTooWide];
    show(pagesettings::lengthForMargin(margin.value, [self getOneDotMM], rules), mLengthTxFld,
         mLengthSlider);
    return YES;
}

- (void)alertThatMarginIsTooWide
{
    // The user may close the dialog while the alert is up.
    [[self retain] autorelease];
    NSRunAlertPanel(@" ", @"%@", @"OK", nil, nil, [self localized:@"RS_Alrt_LengthByMargin"]);
}

- (double)getOneDotMM
{
    const PanelRules rules = [self rules];
    const NSInteger row = [mResolutionRdBtn isEnabled] ? [mResolutionRdBtn selectedRow] : 0;
    if (!mResolution_Option ||
        !ppd::isInList(row, static_cast<std::size_t>(mResolution_Option->num_choices)))
        return pagesettings::leastStepMillimetres(rules);
    return pagesettings::dotMillimetres(ppd::keyword(mResolution_Option->choices[row].choice),
                                        rules);
}

- (double)MiriToInch:(double)millimetres
{
    return MiriToInch(millimetres);
}

- (double)InchToMiri:(double)inches
{
    return InchToMiri(inches);
}

@end
