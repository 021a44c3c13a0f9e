// Filling the controls from the PPD, the selected tape and the limits.

#include "pagesettings/ChoiceRules.hpp"
#include "pagesettings/Controls.h"
#include "pagesettings/DisplayText.hpp"
#include "pagesettings/PageSettingPDE.h"
#include "ppd/ChoiceLookup.hpp"
#include "ppd/Keywords.hpp"
#include "ppd/PDEChoice.h"
#include "ppd/PDEUtilsMethod13.h"
#include "ppd/PPDText.h"
#include "textentry/PDEFormatter.h"

#include <algorithm>

using pagesettings::NumberText;
using pagesettings::PanelRules;
using pagesettings::showLabel;
using pagesettings::Unit;

static constexpr int32_t kDecimalNumberStyle = 4;

// The titles that stand in for a PPD without any, by row or item.
static NSArray* qualityTitles()
{
    return @[ @"RS_QualitySpeed", @"RS_QualityQuality" ];
}

static NSArray* resolutionTitles()
{
    return @[ @"RS_Resol300300", @"RS_Resol300600" ];
}

static NSArray* compressTitles()
{
    return @[ @"RS_CompressOFF", @"RS_CompressON" ];
}

static NSArray* printModeTitles()
{
    return @[ @"RS_VnResolS300300", @"RS_VnResolQ300300", @"RS_VnResolQ300600" ];
}

static void showNumber(NSTextField* field, const NumberText& text)
{
    [field setStringValue:pagesettings::string(text)];
}

static void takeDecimalNumbers(NSTextField* field)
{
    if ([field formatter])
        return;
    PDEFormatter* const formatter = [[PDEFormatter alloc] initWithStyle:kDecimalNumberStyle];
    [field setFormatter:formatter];
    [formatter release];
}

@implementation PageSettingPDE13_v100_ (VNKMZRPS_initialize)

- (void)setTapeState:(int32_t)state
{
    mTapeState = state;
}

- (int32_t)getTapeState
{
    return mTapeState;
}

- (void)initializeUI_OtherStr
{
}

#pragma mark Width, length, margin

- (void)initializeUI_Width
{
    showLabel(mWidthStr, [self localized:@"RS_TapeWidth"]);
    TapeInfo tape = {};
    [self readTape:&tape];
    showLabel(mWidthTxFld, [self tapeWidthTextForPaper:tape.paperName]);
    if (tape.paperName)
        CFRelease(tape.paperName);
}

- (void)initializeUI_Length
{
    TapeInfo tape = {};
    [self readTape:&tape];
    if (tape.paperName)
        CFRelease(tape.paperName);
    [self setTapeState:tape.state];
    const BOOL enabled = [self getTapeState] == 0;
    const PanelRules rules = [self rules];

    [self showCaptionOf:ppd::kTapeLengthOption fallback:@"RS_TapeLength" in:mLengthStr
                enabled:enabled];
    [mLengthTxFld setEnabled:enabled];
    takeDecimalNumbers(mLengthTxFld);

    const NumberText text = pagesettings::lengthText(tape.length, rules.unit, rules.wholeLengths);
    showNumber(mLengthTxFld, text);
    choice_PaperSize = pagesettings::leadingFloat(text.view());

    [self showRangeFrom:rules.limits.minLength to:rules.limits.maxLength
           wholeNumbers:rules.wholeLengths
                  start:pagesettings::roundedUpTextInUnit(choice_PaperSize, rules.unit,
                                                          rules.wholeLengths)
                     in:mLengthSlider
               minLabel:mLengthMinStr
               maxLabel:mLengthMaxStr
                enabled:enabled];
    [self checkValues:YES];
}

- (void)initializeUI_Margin
{
    const BOOL enabled = mMargin_Option && [self getTapeState] == 0;
    const PanelRules rules = [self rules];

    [self showCaptionOf:ppd::kMarginOption fallback:@"RS_Margin" in:mMarginStr enabled:enabled];
    [mMarginTxFld setEnabled:enabled];
    takeDecimalNumbers(mMarginTxFld);

    NumberText text;
    if (mMargin_Option) {
        NSString* const standard = ppd::string(mMargin_Option->defchoice, ppd::systemEncoding());
        text = pagesettings::marginText(pagesettings::valueOfText(standard).asFloat, rules.unit,
                                        rules.wholeMargins);
    }
    showNumber(mMarginTxFld, text);

    NSString* const unit = [self localized:rules.unit == Unit::Inches ? @"RS_Inch" : @"RS_mm"];
    for (NSTextField* label : {mLengthUnitStr, mMarginUnitStr}) {
        [PDEUtilsMethod13 setEnabledForText:enabled item:label];
        [label setStringValue:unit];
    }

    [self showRangeFrom:rules.limits.minMargin to:rules.limits.maxMargin
           wholeNumbers:rules.wholeMargins
                  start:text
                     in:mMarginSlider
               minLabel:mMarginMinStr
               maxLabel:mMarginMaxStr
                enabled:enabled];
}

- (void)showRangeFrom:(float)minimum
                   to:(float)maximum
         wholeNumbers:(bool)wholeNumbers
                start:(const NumberText&)start
                   in:(NSSlider*)slider
             minLabel:(NSTextField*)minLabel
             maxLabel:(NSTextField*)maxLabel
              enabled:(BOOL)enabled
{
    const auto range = pagesettings::sliderRange(
        minimum, maximum, pagesettings::unitFromNumber([self getPDEUnit]), wholeNumbers);
    [slider setMinValue:range.minimum];
    [slider setMaxValue:range.maximum];
    [slider setAltIncrementValue:range.altIncrement];
    [slider setFloatValue:pagesettings::leadingFloat(start.view())];
    [slider setEnabled:enabled];
    [PDEUtilsMethod13 setEnabledForText:enabled item:minLabel];
    [PDEUtilsMethod13 setEnabledForText:enabled item:maxLabel];
    showNumber(minLabel, range.minText);
    showNumber(maxLabel, range.maxText);
}

#pragma mark Captions

- (void)showCaptionOf:(const char*)keyword
             fallback:(NSString*)key
                   in:(NSTextField*)caption
              enabled:(BOOL)enabled
{
    [PDEUtilsMethod13 setEnabledForText:enabled item:caption];
    NSString* const title = [self titleOfOption:ppdFindOption(ppd, keyword)];
    [caption
        setStringValue:[self localized:title ? [NSString stringWithFormat:@"%@ : ", title] : key]];
}

#pragma mark Choice groups

- (void)initializeUI_Quality
{
    if (!mQuality_Choices)
        return;
    [self showCaptionOf:ppd::kQualityOption fallback:@"RS_Quality" in:mPrintQualityStr
                enabled:mQuality_Option != nullptr];
    [self fillMatrix:mPrintQualityRdBtn choices:mQuality_Choices of:ppd::kQualityOption
        standInTitles:qualityTitles()
              enabled:mQuality_Option != nullptr];
}

- (void)initializeUI_Resolution
{
    if (!mResolution_Choices)
        return;
    [self showCaptionOf:ppd::kResolutionOption fallback:@"RS_Resolution" in:mPrintResolutionStr
                enabled:mResolution_Option != nullptr];
    [self fillMatrix:mResolutionRdBtn choices:mResolution_Choices of:ppd::kResolutionOption
        standInTitles:resolutionTitles()
              enabled:mResolution_Option != nullptr];
}

- (void)initializeUI_Compress
{
    const BOOL enabled = pagesettings::isCompressEnabled(usb_dec, mResolution_Option != nullptr);
    [PDEUtilsMethod13 setEnabledForText:enabled item:mPrintCompressStr];
    if (!mCompress_Choices)
        return;
    [self showCaptionOf:ppd::kCompressOption fallback:@"RS_Compress" in:mPrintCompressStr
                enabled:enabled];
    [self fillMatrix:mCompressRdBtn choices:mCompress_Choices of:ppd::kCompressOption
        standInTitles:compressTitles()
              enabled:enabled];
}

- (void)fillMatrix:(NSMatrix*)matrix
           choices:(NSArray*)choices
                of:(const char*)keyword
     standInTitles:(NSArray*)standIns
           enabled:(BOOL)enabled
{
    const NSInteger count = static_cast<NSInteger>([choices count]);
    [self giveMatrix:matrix rows:count];
    [matrix setEnabled:enabled];
    NSInteger row = 0;
    for (NSString* title in [self titlesOf:choices option:keyword standIns:standIns])
        [[matrix cellAtRow:row++ column:0] setTitle:title];
    const NSInteger standard = [self indexOfDefaultIn:choices testing:choices];
    if (ppd::isInList(standard, static_cast<std::size_t>(count)))
        [matrix selectCellAtRow:standard column:0];
}

// One title a choice, in order.  Wherever a choice lacks a title the stand-ins take the first
// places, for a PPD without titles has the choices that they name; any further one shows its
// keyword.
- (NSArray*)titlesOf:(NSArray*)choices option:(const char*)keyword standIns:(NSArray*)standIns
{
    ppd_option_t* const option = ppdFindOption(ppd, keyword);
    const NSUInteger count = [choices count];
    NSMutableArray* const titles = [NSMutableArray arrayWithCapacity:count];
    for (NSUInteger i = 0; i < count; ++i) {
        NSString* const title = [self titleOfChoice:static_cast<NSInteger>(i) ofOption:option];
        if (title) {
            [titles addObject:[self localized:title]];
            continue;
        }
        NSString* const name = [[choices objectAtIndex:i] ppdTitle];
        [titles addObject:name ? name : @""];
        const NSUInteger places = std::min([standIns count], [titles count]);
        for (NSUInteger place = 0; place < places; ++place) {
            NSString* const standIn = [self localized:[standIns objectAtIndex:place]];
            [titles replaceObjectAtIndex:place withObject:standIn];
        }
    }
    return titles;
}

// One row a choice; the matrix itself keeps the selected row, as far as it stays.
- (void)giveMatrix:(NSMatrix*)matrix rows:(NSInteger)count
{
    if ([matrix numberOfRows] != count)
        [matrix renewRows:count columns:1];
}

- (NSInteger)indexOfDefaultIn:(NSArray*)choices testing:(NSArray*)tested
{
    const std::size_t count = std::min([choices count], [tested count]);
    const auto found = ppd::firstIndex(count, [&](std::size_t i) {
        return static_cast<bool>([[tested objectAtIndex:i] isDefaultChoice]);
    });
    return found ? static_cast<NSInteger>(*found) : ppd::kNoIndex;
}

- (void)initializeUI_VnResolution
{
    if (!mVnResolution_Choices)
        return;
    const BOOL enabled = mVnResolution_Option != nullptr;
    // Its caption without a PPD title is that of quality: print mode takes quality's place.
    [self showCaptionOf:ppd::kPrintModeOption fallback:@"RS_Quality" in:mPrintVnResolutionStr
                enabled:enabled];
    [mVnResolutionPUBtn setEnabled:enabled];
    const NSInteger selected = std::max<NSInteger>([mVnResolutionPUBtn indexOfSelectedItem], 0);
    [self fillPrintModes];
    // The default is looked for among the resolutions, to which the print modes correspond.
    const NSInteger standard = [self indexOfDefaultIn:mVnResolution_Choices
                                              testing:mResolution_Choices];
    const NSInteger count = [mVnResolutionPUBtn numberOfItems];
    // Without items, item -1: none.
    [mVnResolutionPUBtn selectItemAtIndex:ppd::isInList(standard, static_cast<std::size_t>(count))
                                              ? standard
                                              : std::min(selected, count - 1)];
}

- (void)fillPrintModes
{
    // Through the menu: the pop-up itself drops an item whose title comes a second time.
    NSMenu* const menu = [mVnResolutionPUBtn menu];
    NSArray* const titles = [self titlesOf:mVnResolution_Choices option:ppd::kPrintModeOption
                                  standIns:printModeTitles()];
    // One message at the end instead of one an item.
    const BOOL tells = [menu menuChangedMessagesEnabled];
    [menu setMenuChangedMessagesEnabled:NO];
    while ([menu numberOfItems] > 0)
        [menu removeItemAtIndex:[menu numberOfItems] - 1];
    for (NSString* title in titles)
        [menu addItemWithTitle:title action:NULL keyEquivalent:@""];
    [menu setMenuChangedMessagesEnabled:tells];
}

#pragma mark Quality and resolution

- (void)enabledCheck_BS
{
    switch (pagesettings::qualityGroupFor([mResolutionRdBtn selectedRow],
                                          [mPrintQualityRdBtn isEnabled])) {
    case pagesettings::QualityGroup::Unchanged:
        break;
    case pagesettings::QualityGroup::Enabled:
        [self setQualityEnabled:YES];
        break;
    case pagesettings::QualityGroup::Disabled:
        [self setQualityEnabled:NO];
        break;
    }
}

- (void)setQualityEnabled:(BOOL)enabled
{
    [mPrintQualityRdBtn setEnabled:enabled];
    [PDEUtilsMethod13 setEnabledForText:enabled item:mPrintQualityStr];
}

@end
