#include "pagesettings/PageSettingPDE.h"

#include "pagesettings/ChoiceRules.hpp"
#include "pagesettings/Layout.hpp"
#include "plugin/HostCall.h"
#include "ppd/ChoiceLookup.hpp"
#include "ppd/Keywords.hpp"
#include "ppd/PDEUtilsMethod13.h"

#include <algorithm>
#include <cstring>
#include <map>

using pagesettings::RowPlace;

namespace {

// What a panel knows of the selected paper from the last time it asked.
struct PaperMemory
{
    std::size_t sizePlace = 0;                        // in the PPD's list of sizes
    char widthTitle[sizeof(ppd_choice_t::text)] = ""; // as the PPD words it
    NSString* widthText = nil;                        // localized; owned; nil: none yet
};

// By panel, and not in it: its variables are known to others.  Outlives every static object.
std::map<const void*, PaperMemory>& memories()
{
    static auto& all = *new std::map<const void*, PaperMemory>;
    return all;
}

void forget(const void* panel)
{
    const auto found = memories().find(panel);
    if (found == memories().end())
        return;
    [found->second.widthText release];
    memories().erase(found);
}

} // namespace

@implementation PageSettingPDE13_v100_

- (id)initWithCallback:(id)callback andBundle:(NSBundle*)bundle
{
    self = [super initWithCallback:callback andBundle:bundle];
    if (!self)
        return nil;

    checkValues_dec = YES;
    column_dec = NO;
    set_formatSetting = NO;
    mPDEUnit = 0;
    mTapeState = 0;
    mQuality_Selection = nil;
    mResolution_Selection = nil;
    mCompress_Selection = nil;
    mVnResolution_Selection = nil;

    usb_dec = [self isOnUSB];
    [self loadUnit];

    mMargin_Option = ppdFindOption(ppd, ppd::kMarginOption);
    mQuality_Option = ppdFindOption(ppd, ppd::kQualityOption);
    mQuality_Choices = [PDEUtilsMethod13 arrayFromPPDOption:mQuality_Option];
    mResolution_Option = ppdFindOption(ppd, ppd::kResolutionOption);
    mResolution_Choices = [PDEUtilsMethod13 arrayFromPPDOption:mResolution_Option];
    mCompress_Option = ppdFindOption(ppd, ppd::kCompressOption);
    mCompress_Choices = [PDEUtilsMethod13 arrayFromPPDOption:mCompress_Option];
    mVnResolution_Option = ppdFindOption(ppd, ppd::kPrintModeOption);
    mVnResolution_Choices = [PDEUtilsMethod13 arrayFromPPDOption:mVnResolution_Option];
    return self;
}

- (BOOL)isOnUSB
{
    CFURLRef url = nullptr;
    PMPrinter const current = plugin::answerOf([&] { return [pdePluginCallbackObject PMPrinter]; });
    if (PMPrinterCopyDeviceURI(current, &url) != 0 || !url)
        return NO;
    CFStringRef const scheme = CFURLCopyScheme(url);
    if (!scheme)
        return NO;
    const BOOL isUSB = CFStringCompare(scheme, CFSTR("usb"), 0) == kCFCompareEqualTo ||
                       CFStringCompare(scheme, CFSTR("VNKMUSB"), 0) == kCFCompareEqualTo;
    CFRelease(scheme);
    return isUSB;
}

- (void)dealloc
{
    [self letGoOfControls];
    [mQuality_Choices release];
    [mResolution_Choices release];
    [mCompress_Choices release];
    [mVnResolution_Choices release];
    forget(self);
    [super dealloc];
}

// The dialog may keep the view longer than the panel, and controls do not retain whom they message.
- (void)letGoOfControls
{
    [mLengthSlider setTarget:nil];
    [mMarginSlider setTarget:nil];
    [mPrintQualityRdBtn setTarget:nil];
    [mResolutionRdBtn setTarget:nil];
    [mCompressRdBtn setTarget:nil];
    [mVnResolutionPUBtn setTarget:nil];
    [mLengthTxFld setDelegate:nil];
    [mMarginTxFld setDelegate:nil];
}

- (void)finalize
{
    [super finalize];
}

#pragma mark Layout

static void showRow(NSView* label, NSView* control, bool shown)
{
    [label setHidden:!shown];
    [control setHidden:!shown];
}

static void moveTo(NSView* view, double y)
{
    [view setFrameOrigin:NSMakePoint([view frame].origin.x, y)];
}

static void placeRow(NSView* label, NSView* control, const std::optional<RowPlace>& place)
{
    if (!place)
        return;
    moveTo(control, place->controlY);
    moveTo(label, place->labelY);
}

static std::optional<std::size_t> countOf(NSArray* choices)
{
    return choices ? std::optional<std::size_t>([choices count]) : std::nullopt;
}

- (void)awakeFromNib
{
    const NSSize size = kPDEView ? [kPDEView frame].size : NSZeroSize;
    const auto compressWidth =
        mCompressRdBtn ? std::optional<double>([mCompressRdBtn frame].size.width) : std::nullopt;
    const pagesettings::PanelLayout layout =
        pagesettings::layoutFor({.quality = countOf(mQuality_Choices),
                                 .resolution = countOf(mResolution_Choices),
                                 .compress = countOf(mCompress_Choices),
                                 .printMode = countOf(mVnResolution_Choices)},
                                compressWidth);

    showRow(mPrintCompressStr, mCompressRdBtn, layout.showsCompress);
    showRow(mPrintResolutionStr, mResolutionRdBtn, layout.showsResolution);
    showRow(mPrintQualityStr, mPrintQualityRdBtn, layout.showsQuality);
    showRow(mPrintVnResolutionStr, mVnResolutionPUBtn, layout.showsPrintMode);

    [self setViewFrameSize:NSMakeSize(size.width, size.height - layout.heightReduction)];

    placeRow(mPrintCompressStr, mCompressRdBtn, layout.compress);
    placeRow(mPrintResolutionStr, mResolutionRdBtn, layout.resolution);
    placeRow(mPrintQualityStr, mPrintQualityRdBtn, layout.quality);

    if (layout.removesSeparator) {
        [mSeparateLine1 removeFromSuperview];
        // Its superview alone kept it.
        mSeparateLine1 = nil;
    }
}

#pragma mark The print dialog's side

- (NSArray*)supportedPPDOptionKeys
{
    if ([self supportedOptions])
        return [self supportedOptions];
    [self saveAllSettings];
    [self setSupportedOptions:[NSMutableArray array]];
    // Quality stands before margin in every release: a dialog's saved presets follow this order.
    [self appendSupported:mQuality_Option key:ppd::kQualityOption];
    [self appendSupported:mMargin_Option key:ppd::kMarginOption];
    [self appendSupported:mResolution_Option key:ppd::kResolutionOption];
    [self appendSupported:mCompress_Option key:ppd::kCompressOption];
    [self appendSupported:mVnResolution_Option key:ppd::kPrintModeOption];
    return [self supportedOptions];
}

- (void)appendSupported:(const ppd_option_t*)option key:(const char*)key
{
    if (option)
        [[self supportedOptions] addObject:[NSString stringWithUTF8String:key]];
}

- (void)saveAllSettings
{
    [self saveSetting_Length];
    [self saveSetting_Margin];
    [self saveSetting_Quality];
    [self saveSetting_Resolution];
    [self saveSetting_Compress];
    [self saveSetting_VnResolution];
}

- (void)printWindowWillClose:(BOOL)flag
{
}

- (BOOL)shouldShowHelp
{
    return NO;
}

- (void)initSetTitleTexts
{
}

- (void)getValuesFromKey
{
}

- (void)initUI
{
    if (set_formatSetting)
        return;
    [self initializeUI_Width];
    [self initializeUI_Length];
    [self initializeUI_Margin];
    [self initializeUI_Quality];
    [self initializeUI_Resolution];
    [self initializeUI_Compress];
    [self initializeUI_VnResolution];
    [self saveAllSettings];
    set_formatSetting = YES;
}

- (void)setValuesToKey
{
    [self checkValues:NO];
    [self saveAllSettings];
}

- (void)setPDEItems
{
    for (const pagesettings::ItemMask item : pagesettings::kAllItems)
        [self updateUIItem:item];
}

- (void)setPDEItems2
{
    for (const pagesettings::ItemMask item : pagesettings::kAllItems)
        [self updateMarkedSelections:item];
}

#pragma mark Units and limits

- (void)setPDEUnit:(int32_t)unit
{
    mPDEUnit = unit;
}

- (int32_t)getPDEUnit
{
    return mPDEUnit;
}

// The value as text; NULL when it is missing, empty, or bytes that are not valid in the system
// encoding.  Valid for the autorelease pool.
- (const char*)valueOfAttribute:(const char*)keyword
{
    const ppd_attr_t* const attribute = ppdFindAttr(ppd, keyword, nullptr);
    const char* value = attribute ? attribute->value : nullptr;
    // What is plain ASCII every system encoding reads alike: no string has to be made for it.
    if (value && !ppd::isASCII(value))
        value = [[PDEUtilsMethod13 ppdAttrValStr:ppd cStrKey:keyword] UTF8String];
    return value && *value != '\0' ? value : nullptr;
}

- (void)loadUnit
{
    const char* const value = [self valueOfAttribute:ppd::kUnitTypeAttribute];
    if (value)
        [self setPDEUnit:static_cast<int32_t>(pagesettings::unitFromAttribute(value))];
}

- (BOOL)isTrueAttribute:(const char*)keyword
{
    const char* const value = [self valueOfAttribute:keyword];
    return value && pagesettings::isTrue(value);
}

- (float)limitAttribute:(const char*)keyword
{
    const char* const value = [self valueOfAttribute:keyword];
    return value ? pagesettings::leadingFloat(value) : 0.0f;
}

- (BOOL)isIntegerTapeLen
{
    return [self isTrueAttribute:ppd::kWholeTapeLengthAttribute];
}

- (BOOL)isIntegerMarginLen
{
    return [self isTrueAttribute:ppd::kWholeMarginAttribute];
}

- (float)minTapeLen
{
    return [self limitAttribute:ppd::kMinTapeLengthAttribute];
}

- (float)maxTapeLen
{
    return [self limitAttribute:ppd::kMaxTapeLengthAttribute];
}

- (float)minMargin
{
    return [self limitAttribute:ppd::kMinMarginAttribute];
}

- (float)maxMargin
{
    return [self limitAttribute:ppd::kMaxMarginAttribute];
}

#pragma mark Typing

- (BOOL)isEntryField:(id)object
{
    return object && (object == mLengthTxFld || object == mMarginTxFld);
}

- (void)controlTextDidChange:(NSNotification*)notification
{
    if (![self isEntryField:[notification object]])
        return;
    column_dec = YES;
    [self checkValues:NO];
}

- (void)controlTextDidEndEditing:(NSNotification*)notification
{
    const NSEventType cause = [[NSApp currentEvent] type];
    // Only the user ends editing with the mouse or a key; a dialog that changes the text itself has
    // its own idea of what should stand there.
    if ([self isEntryField:[notification object]] &&
        (cause == NSLeftMouseDown || cause == NSKeyDown))
        [self checkValues:NO];
}

@end

@implementation PageSettingPDE13_v100_ (Shared)

- (pagesettings::PanelRules)rules
{
    return {.unit = pagesettings::unitFromNumber([self getPDEUnit]),
            .wholeLengths = static_cast<bool>([self isIntegerTapeLen]),
            .wholeMargins = static_cast<bool>([self isIntegerMarginLen]),
            .limits = {.minLength = [self minTapeLen],
                       .maxLength = [self maxTapeLen],
                       .minMargin = [self minMargin],
                       .maxMargin = [self maxMargin]}};
}

- (BOOL)readTape:(TapeInfo*)tape
{
    OSStatus ignored = {};
    return [self readTape:tape status:&ignored];
}

- (BOOL)readTape:(TapeInfo*)tape status:(OSStatus*)status
{
    const bool answered = plugin::isTaken([&] {
        PMPrintSettings const settings = [pdePluginCallbackObject printSettings];
        *status = tapeInfo(settings, [pdePluginCallbackObject pageFormat], ppd, tape,
                           memories()[self].sizePlace);
    });
    if (!answered)
        *status = GetTapeInfo(printSession, nullptr, nullptr, ppd, tape);
    return answered;
}

static NSString* nonEmpty(NSString* title)
{
    return [title length] > 0 ? title : nil;
}

- (NSString*)titleOfOption:(ppd_option_t*)option
{
    return nonEmpty([[PDEUtilsMethod13 newOptionTitle:option] autorelease]);
}

- (NSString*)titleOfChoice:(NSInteger)index ofOption:(ppd_option_t*)option
{
    if (!option || index < 0 || index >= option->num_choices)
        return nil;
    return nonEmpty([[PDEUtilsMethod13 newChoiceTitle:&option->choices[index]] autorelease]);
}

- (NSString*)tapeWidthTextForPaper:(CFStringRef)paperName
{
    ppd_option_t* const pageSizes = ppdFindOption(ppd, ppd::kPageSizeOption);
    const char* const name = [(NSString*)paperName UTF8String];
    if (!name || !pageSizes)
        return [self localized:@"RS_TapeWidthNot"];
    // A page size and its wording stand at the same place in their two lists.
    const int count = std::max(std::min(pageSizes->num_choices, ppd->num_sizes), 0);
    const auto place = ppd::firstIndexFrom(
        memories()[self].sizePlace, static_cast<std::size_t>(count),
        [&](std::size_t i) { return std::strcmp(name, ppd->sizes[i].name) == 0; });
    return place ? [self widthTextOf:pageSizes->choices[*place]]
                 : [self localized:@"RS_TapeWidthNot"];
}

// Asked for a dozen times in a row and nearly always for the same tape.
- (NSString*)widthTextOf:(ppd_choice_t&)size
{
    PaperMemory& memory = memories()[self];
    if (!memory.widthText ||
        std::strncmp(memory.widthTitle, size.text, sizeof memory.widthTitle) != 0) {
        NSString* const title = nonEmpty([[PDEUtilsMethod13 newChoiceTitle:&size] autorelease]);
        NSString* const text = [self localized:title ? title : @"RS_TapeWidthNot"];
        [memory.widthText release];
        memory.widthText = [text copy];
        std::memcpy(memory.widthTitle, size.text, sizeof memory.widthTitle);
    }
    return [[memory.widthText retain] autorelease];
}

@end
