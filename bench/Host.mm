#include "bench/Host.hpp"

#include "plugin/PDEPluginCallback.h"

#include <objc/runtime.h>

#include <cstdio>
#include <cstdlib>

@interface MeasuringDialog : NSObject <PDEPluginCallback13_v100_>
{
  @public
    const bench::Dialog* dialog;
}
@end

@implementation MeasuringDialog

- (PMPrintSession)printSession
{
    return dialog->session.handle();
}

- (PMPrintSettings)printSettings
{
    return dialog->settings.handle();
}

- (PMPageFormat)pageFormat
{
    return dialog->format.handle();
}

- (PMPrinter)PMPrinter
{
    return dialog->printer.handle();
}

- (ppd_file_t*)ppdFile
{
    return dialog->ppd();
}

- (void)willChangePPDOptionKeyValue:(NSString*)key ppdChoice:(NSString*)choice
{
    if (dialog->marksChoices && ppdFindOption(dialog->ppd(), [key UTF8String]) != nullptr)
        ppdMarkOption(dialog->ppd(), [key UTF8String], [choice UTF8String]);
}

- (void)panelViewDidResize
{
}

@end

// Has the panel's outlets, and nothing of what it does.
@interface BareOwner : NSObject
{
    id kPDEView;
    id mWidthStr, mWidthTxFld, mSeparateLine1;
    id mLengthStr, mLengthTxFld, mLengthUnitStr, mLengthSlider, mLengthMinStr, mLengthMaxStr;
    id mMarginStr, mMarginTxFld, mMarginUnitStr, mMarginSlider, mMarginMinStr, mMarginMaxStr;
    id mPrintQualityStr, mPrintQualityRdBtn, mPrintResolutionStr, mResolutionRdBtn;
    id mPrintCompressStr, mCompressRdBtn, mPrintVnResolutionStr, mVnResolutionPUBtn;
}
@end

@implementation BareOwner
@end

@protocol MeasuredPlugIn <NSObject>
- (BOOL)initWithBundle:(NSBundle*)bundle;
- (NSArray*)PDEPanelsForType:(NSString*)type withHostInfo:(id)info;
@end

namespace bench {

namespace {

[[noreturn]] void giveUp(const char* what)
{
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}

id ivar(id object, const char* name)
{
    Ivar const found = class_getInstanceVariable(object_getClass(object), name);
    if (found == nullptr)
        giveUp(name);
    return object_getIvar(object, found);
}

} // namespace

NSBundle* loadedBundle()
{
    NSBundle* const bundle = [NSBundle bundleWithPath:@PLUGIN_PATH];
    if (bundle == nil || ![bundle load])
        giveUp("The bundle at " PLUGIN_PATH " cannot be loaded.");
    return bundle;
}

Dialog::Dialog(int sizes, int choices)
    : printer("LabelPrinter", "usb://Vendor/LabelPrinter"),
      ppd_(labelPrinter(sizes, choices).open())
{
    if (!ppd_)
        giveUp("The PPD cannot be opened.");
    choosePaper(sizes - 1);
    MeasuringDialog* const made = [[MeasuringDialog alloc] init];
    made->dialog = this;
    callback_ = made;
}

Dialog::~Dialog()
{
    [callback_ release];
}

void Dialog::choosePaper(int index)
{
    format.setPaper({sizeKeyword(index), 68, sizeHeightPoints(index)});
}

Panel::Panel(const Dialog& dialog)
{
    NSBundle* const bundle = loadedBundle();
    plugin_ = [[bundle principalClass] alloc];
    [(id<MeasuredPlugIn>)plugin_ initWithBundle:bundle];
    panel_ = [[[(id<MeasuredPlugIn>)plugin_ PDEPanelsForType:@"BDB091F4-E57F-11D3-B5CC-0050E4603277"
                                                withHostInfo:dialog.callback()] lastObject] retain];
    view_ = [[panel_ panelView] retain];
    if (view_ == nil)
        giveUp("The panel has no view.");
    [panel_ panelName];
    [panel_ panelKind];
    [panel_ supportedPPDOptionKeys];
}

Panel::~Panel()
{
    [view_ release];
    [panel_ release];
    [plugin_ release];
}

id Panel::control(const char* outlet) const
{
    return ivar(panel_, outlet);
}

BareView::BareView() : owner_([[BareOwner alloc] init])
{
    [loadedBundle() loadNibFile:@"PageSettingPDE"
              externalNameTable:[NSDictionary dictionaryWithObject:owner_ forKey:NSNibOwner]
                       withZone:NULL];
    if (view() == nil)
        giveUp("The interface file cannot be loaded.");
}

BareView::~BareView()
{
    for (const char* const name : {"mLengthTxFld", "mMarginTxFld"})
        [(NSTextField*)control(name) setDelegate:nil];
    for (const char* const name : {"mLengthSlider", "mMarginSlider", "mPrintQualityRdBtn",
                                   "mResolutionRdBtn", "mCompressRdBtn", "mVnResolutionPUBtn"})
        [(NSControl*)control(name) setTarget:nil];
    [view() release]; // the file's owner owns what is at its top
    [owner_ release];
}

NSView* BareView::view() const
{
    return control("kPDEView");
}

id BareView::control(const char* outlet) const
{
    return ivar(owner_, outlet);
}

Stage::Stage()
{
    window_ = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 600, 500)
                                          styleMask:NSTitledWindowMask
                                            backing:NSBackingStoreBuffered
                                              defer:NO];
    [window_ setReleasedWhenClosed:NO];
    [window_ setTitle:@"Bench"];
    [NSApp finishLaunching];
    [NSApp activateIgnoringOtherApps:YES];
    [window_ makeKeyAndOrderFront:nil];
    // Until the window manager has given the window the keyboard, a field does not edit.
    NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:30];
    while (![window_ isKeyWindow] && [end timeIntervalSinceNow] > 0) {
        const Pool pool;
        NSEvent* const event =
            [NSApp nextEventMatchingMask:NSAnyEventMask
                               untilDate:[NSDate dateWithTimeIntervalSinceNow:0.1]
                                  inMode:NSDefaultRunLoopMode
                                 dequeue:YES];
        if (event != nil)
            [NSApp sendEvent:event];
    }
    if (![window_ isKeyWindow])
        giveUp("The window does not get the keyboard.");
}

void Stage::show(NSView* view) const
{
    const NSSize size = [[window_ contentView] frame].size;
    [view setFrameOrigin:NSMakePoint(20, size.height - [view frame].size.height - 20)];
    [[window_ contentView] addSubview:view];
}

void Stage::draw() const
{
    [window_ displayIfNeeded];
    [window_ flushWindow];
}

void Stage::clear(NSView* view) const
{
    [view removeFromSuperview];
}

void Stage::deliver(NSEvent* event) const
{
    [NSApp postEvent:event atStart:YES];
    NSEvent* const next = [NSApp nextEventMatchingMask:NSAnyEventMask untilDate:[NSDate distantPast]
                                                inMode:NSDefaultRunLoopMode
                                               dequeue:YES];
    [NSApp sendEvent:next];
}

void Stage::pressKey(unichar character) const
{
    NSString* const text = [NSString stringWithCharacters:&character length:1];
    deliver([NSEvent keyEventWithType:NSKeyDown location:NSZeroPoint modifierFlags:0 timestamp:0
                         windowNumber:[window_ windowNumber]
                              context:nil
                           characters:text
          charactersIgnoringModifiers:text
                            isARepeat:NO
                              keyCode:0]);
}

} // namespace bench
