// The lines that the dialog shows when it sums up all settings.

#include "pagesettings/Controls.h"
#include "pagesettings/DisplayText.hpp"
#include "pagesettings/PageSettingPDE.h"
#include "pagesettings/SummaryLines.hpp"
#include "ppd/Keywords.hpp"
#include "ppd/PDEChoice.h"
#include "ppd/PDEUtilsMethod13.h"
#include "ppd/PPDText.h"

using pagesettings::PanelRules;
using pagesettings::string;
using pagesettings::SummaryLine;
using pagesettings::Unit;

// The dialog's own key for the order of the lines.
static NSString* const kDisplayOrder = @"Summary Display Order";

// The lines so far: a value by title, and the titles in order, which may hold one twice.
struct SummaryLines
{
    NSMutableDictionary* values;
    NSMutableArray* order;

    void add(NSString* title, NSString* value) const
    {
        [order addObject:title];
        [values setObject:value ? value : @"" forKey:title];
    }
};

@implementation PageSettingPDE13_v100_ (Summary)

- (NSDictionary*)summaryInfo
{
    const SummaryLines lines = {[NSMutableDictionary dictionary], [NSMutableArray array]};
    TapeInfo tape = {};
    OSStatus status = {};
    [self readTape:&tape status:&status];

    lines.add([self localized:@"RS_STitle_TapeWidth"], [self tapeWidthTextForPaper:tape.paperName]);
    if (tape.paperName)
        CFRelease(tape.paperName);
    if (status == 0)
        lines.add([self summaryTitleOf:ppd::kTapeLengthOption fallback:@"RS_STitle_TapeLength"],
                  [self summaryOfLength:tape]);
    if (mMargin_Option)
        lines.add([self summaryTitleOf:ppd::kMarginOption fallback:@"RS_STitle_Margin"],
                  [self summaryOfMargin]);
    // Print mode carries quality's title: it takes quality's place.
    if (mVnResolution_Selection)
        lines.add([self summaryTitleOf:ppd::kPrintModeOption fallback:@"RS_STitle_Quality"],
                  [self summaryOf:SummaryLine::PrintMode key:ppd::kPrintModeOption
                          choices:mVnResolution_Choices
                        selection:mVnResolution_Selection]);
    if (mQuality_Selection && pagesettings::showsQualityLine([self markedResolution]))
        lines.add([self summaryTitleOf:ppd::kQualityOption fallback:@"RS_STitle_Quality"],
                  [self summaryOf:SummaryLine::Quality key:ppd::kQualityOption
                          choices:mQuality_Choices
                        selection:mQuality_Selection]);
    if (mResolution_Selection && !mVnResolution_Selection)
        lines.add([self summaryTitleOf:ppd::kResolutionOption fallback:@"RS_STitle_Resolution"],
                  [self summaryOf:SummaryLine::Resolution key:ppd::kResolutionOption
                          choices:mResolution_Choices
                        selection:mResolution_Selection]);
    if (mCompress_Selection && usb_dec == 1)
        lines.add([self summaryTitleOf:ppd::kCompressOption fallback:@"RS_STitle_Compress"],
                  [self summaryOf:SummaryLine::Compress key:ppd::kCompressOption
                          choices:mCompress_Choices
                        selection:mCompress_Selection]);

    // Empty titles stay in the order: it is handed over unfiltered.
    [lines.values setObject:lines.order forKey:kDisplayOrder];
    return lines.values;
}

- (NSInteger)markedResolution
{
    return [self indexOfMarkedOption:mResolution_Choices forKey:@"Resolution"];
}

- (NSString*)summaryTitleOf:(const char*)keyword fallback:(NSString*)key
{
    NSString* const title = [self titleOfOption:ppdFindOption(ppd, keyword)];
    return [self localized:title ? title : key];
}

- (NSString*)withUnit:(NSString*)number
{
    const Unit unit = pagesettings::unitFromNumber([self getPDEUnit]);
    return
        [NSString stringWithFormat:@"%@%@", number,
                                   [self localized:unit == Unit::Inches ? @"RS_Inch" : @"RS_mm"]];
}

- (NSString*)summaryOfLength:(const TapeInfo&)tape
{
    const PanelRules rules = [self rules];
    NSString* number =
        set_formatSetting == 1
            ? [mLengthTxFld stringValue]
            : string(pagesettings::lengthText(tape.length, rules.unit, rules.wholeLengths));
    if (tape.state == 0) {
        const char* const shown = [number UTF8String];
        number = string(pagesettings::clampedLengthText(shown ? shown : "", rules));
    }
    return [self withUnit:number ? number : @""];
}

- (NSString*)summaryOfMargin
{
    if (set_formatSetting == 1) {
        NSString* const shown = [mMarginTxFld stringValue];
        return [self withUnit:shown ? shown : @""];
    }
    const PanelRules rules = [self rules];
    NSString* const standard = ppd::string(mMargin_Option->defchoice, ppd::systemEncoding());
    return
        [self withUnit:string(pagesettings::marginText(pagesettings::valueOfText(standard).asFloat,
                                                       rules.unit, rules.wholeMargins))];
}

- (NSString*)summaryOf:(SummaryLine)line
                   key:(const char*)keyword
               choices:(NSArray*)choices
             selection:(PDEChoice*)selection
{
    const NSInteger index = [self indexOfMarkedOption:choices
                                               forKey:[NSString stringWithUTF8String:keyword]];
    const char* const fallback = pagesettings::summaryValueKey(line, index, [self isZRPrinter]);
    if (!fallback)
        return [selection userTitle];
    NSString* const title = [self titleOfChoice:index ofOption:ppdFindOption(ppd, keyword)];
    return [self localized:title ? title : [NSString stringWithUTF8String:fallback]];
}

// Counts the thresholds above the item's value.  There are none, so nothing is looked up, and a
// caller that passes an item mask instead of a keyword is as welcome.
- (int32_t)indexForSummary:(const char*)keyword
{
    return 0;
}

@end
