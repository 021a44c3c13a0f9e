#include "plugin/BasePDE.h"

#include "plugin/HostCall.h"
#include "plugin/ViewResize.hpp"
#include "ppd/ChoiceLookup.hpp"
#include "ppd/Keywords.hpp"
#include "ppd/PDEChoice.h"
#include "ppd/PDEUtilsMethod13.h"
#include "ppd/PPDText.h"

#include <CoreFoundation/CoreFoundation.h>

static NSString* const kInterfaceFile = @"PageSettingPDE";
static NSString* const kPanelNameKey = @"PS_PANEL_NAME";
static NSString* const kPanelKind = @"jp.co.vendor.printer.cups.pde.VNKMZRPageSettingsPDEKind";

@implementation BasePDE13_v100_

- (id)initWithCallback:(id)callback andBundle:(NSBundle*)bundle
{
    self = [super init];
    if (!self)
        return nil;
    mSupportedOptions = nil;
    thePDEName = nil;

    nsPDEBundle = [bundle retain];
    pdePluginCallbackObject = [callback retain];

    printSession = plugin::answerOf([&] { return [pdePluginCallbackObject printSession]; });
    pmPrintSettings = plugin::answerOf([&] { return [pdePluginCallbackObject printSettings]; });
    printSettings = plugin::answerOf([&] { return [pdePluginCallbackObject printSettings]; });
    formatSettings = plugin::answerOf([&] { return [pdePluginCallbackObject pageFormat]; });
    printer = plugin::answerOf([&] { return [pdePluginCallbackObject PMPrinter]; });
    ppd = plugin::answerOf([&] { return [pdePluginCallbackObject ppdFile]; });

    [self copyDeviceURI];
    return self;
}

- (void)copyDeviceURI
{
    deviceURI[0] = '\0';
    CFURLRef url = nullptr;
    if (PMPrinterCopyDeviceURI(printer, &url) != 0 || !url)
        return;
    // The URL is kept: print systems have been seen that hand out the one they go on using.
    CFStringRef const text = CFURLGetString(url);
    if (text &&
        !CFStringGetCString(text, deviceURI, sizeof deviceURI - 1, CFStringGetSystemEncoding()))
        deviceURI[0] = '\0';
}

- (void)dealloc
{
    // The view may outlive the panel, and with it a wait for the dialog to grow.
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [kPDEView release];
    [mSupportedOptions release];
    [thePDEName release];
    [pdePluginCallbackObject release];
    [nsPDEBundle release];
    [super dealloc];
}

- (void)finalize
{
    [super finalize];
}

#pragma mark The print dialog's side

- (NSView*)panelView
{
    if (!kPDEView) {
        NSBundle* const bundle = [NSBundle bundleForClass:[self class]];
        NSDictionary* const names = [NSDictionary dictionaryWithObject:self forKey:NSNibOwner];
        @try {
            [bundle loadNibFile:kInterfaceFile externalNameTable:names withZone:NULL];
        } @catch (NSException* exception) {
            // A damaged interface file gives no view; it must not take the dialog down.
            NSLog(@"%@: %@", kInterfaceFile, [exception reason]);
        }
    }
    return kPDEView;
}

- (NSString*)panelName
{
    if (!thePDEName)
        thePDEName = [[nsPDEBundle localizedStringForKey:kPanelNameKey value:nil table:nil] retain];
    return thePDEName;
}

- (NSString*)panelKind
{
    return kPanelKind;
}

- (NSArray*)supportedPPDOptionKeys
{
    [self setValuesToKey];
    return nil;
}

- (void)printWindowWillClose:(BOOL)flag
{
}

- (void)willShow
{
    [self initSetTitleTexts];
    [self initUI];
    [self updateUI];
}

- (BOOL)shouldHide
{
    return YES;
}

- (BOOL)shouldPrint
{
    return YES;
}

- (BOOL)shouldShowHelp
{
    return NO;
}

- (void)PPDOptionKeyValueDidChange:(NSString*)key ppdChoice:(NSString*)choice
{
}

- (BOOL)restoreValuesAndReturnError:(NSError**)error
{
    [self setPDEItems2];
    [self updateUI];
    return YES;
}

- (BOOL)saveValuesAndReturnError:(NSError**)error
{
    [self setValuesToKey];
    return YES;
}

- (NSDictionary*)summaryInfo
{
    return nil;
}

#pragma mark Hooks

- (void)updateUI
{
    [self setPDEItems];
}

- (void)initSetTitleTexts
{
}

- (void)initUI
{
}

- (void)getValuesFromKey
{
}

- (void)setValuesToKey
{
}

- (void)setPDEItems
{
}

- (void)setPDEItems2
{
}

- (void)updateUIItem:(int32_t)itemType
{
}

- (void)updateMarkedSelections:(int32_t)itemType
{
}

- (int32_t)indexForSummary:(int32_t)itemType
{
    return 0;
}

#pragma mark Services for a concrete panel

- (NSString*)fileVerString
{
    return [PDEUtilsMethod13 ppdAttrValStr:ppd cStrKey:ppd::kFileVersionAttribute];
}

- (BOOL)isZRPrinter
{
    return [[PDEUtilsMethod13 ppdAttrValStr:ppd
                                    cStrKey:ppd::kTapeTypeAttribute] isEqualToString:@"ZR"];
}

- (PDEChoice*)selectionForItem:(NSInteger)index
                           key:(NSString*)key
                       choices:(NSArray*)choices
                      itemType:(int32_t)itemType
{
    if (!ppd::isInList(index, [choices count]))
        return nil;
    PDEChoice* const choice = [choices objectAtIndex:static_cast<NSUInteger>(index)];
    [self tellDialogOption:key choice:[choice ppdTitle]];
    [self updateMarkedSelections:itemType];
    return choice;
}

- (NSInteger)indexOfMarkedOption:(NSArray*)choices forKey:(NSString*)key
{
    const ppd_choice_t* const marked = ppdFindMarkedChoice(ppd, [key UTF8String]);
    if (!marked)
        return ppd::kNoIndex;
    return ppd::indexOfMarked(ppd::keyword(marked->choice), [choices count], [&](std::size_t i) {
        const ppd_choice_t* const choice = [[choices objectAtIndex:i] choice];
        return choice ? ppd::keyword(choice->choice) : std::string_view();
    });
}

- (NSInteger)indexOfDefaultOption:(NSArray*)choices
{
    return ppd::indexOfDefault([choices count], [&](std::size_t i) {
        return static_cast<bool>([[choices objectAtIndex:i] isDefaultChoice]);
    });
}

- (void)setSupportedOptions:(NSMutableArray*)options
{
    if (options == mSupportedOptions)
        return;
    [mSupportedOptions autorelease];
    mSupportedOptions = [options retain];
}

- (NSMutableArray*)supportedOptions
{
    return mSupportedOptions;
}

- (void)setViewFrameSize:(NSSize)size
{
    if (!kPDEView || ![pdePluginCallbackObject respondsToSelector:@selector(panelViewDidResize)])
        return;
    [kPDEView setFrameSize:size];
    NSWindow* const window = [NSApp keyWindow];
    if (!window)
        return;
    if (plugin::windowHoldsView([window frame].size.height, size.height)) {
        [self tellDialogOfResize];
        return;
    }
    [[NSNotificationCenter defaultCenter] addObserver:self selector:@selector(dialogDidExpand:)
                                                 name:NSViewDidUpdateTrackingAreasNotification
                                               object:kPDEView];
}

- (void)dialogDidExpand:(NSNotification*)notification
{
    [[NSNotificationCenter defaultCenter] removeObserver:self
                                                    name:NSViewDidUpdateTrackingAreasNotification
                                                  object:kPDEView];
    [self tellDialogOfResize];
}

- (void)setDefaultChoices:(ppd_option_t*)option
                  choices:(NSArray*)choices
                  cStrKey:(const char*)cStrKey
                  nStrKey:(NSString*)nStrKey
{
    if (!option || ppdFindMarkedChoice(ppd, cStrKey))
        return;
    const NSInteger index = [self indexOfDefaultOption:choices];
    if (!ppd::isInList(index, static_cast<std::size_t>(option->num_choices)))
        return;
    [self tellDialogOption:nStrKey
                    choice:ppd::string(option->choices[index].choice, NSUTF8StringEncoding)];
    [[PDEUtilsMethod13 arrayFromPPDOption:option] release];
}

#pragma mark Helpers

- (void)tellDialogOption:(NSString*)key choice:(NSString*)choice
{
    // A keyword that is not valid in its encoding names no choice the dialog could mark.
    if (key && choice)
        plugin::isTaken(
            [&] { [pdePluginCallbackObject willChangePPDOptionKeyValue:key ppdChoice:choice]; });
}

- (void)tellDialogOfResize
{
    plugin::isTaken([&] { [pdePluginCallbackObject panelViewDidResize]; });
}

- (NSString*)localized:(NSString*)key
{
    // Without a bundle a key shows as itself, as one without a translation does.
    return nsPDEBundle ? [nsPDEBundle localizedStringForKey:key value:nil table:nil] : key;
}

@end
