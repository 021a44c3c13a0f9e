// dialog.mm - the rows about tape-print itself: another tape, its list, another printer.
#include "bench/LabelPrinter.hpp"
#include "bench/Meter.hpp"
#include "dialog/DialogController+Printers.h"
#include "dialog/longlist/LongPopUp.h"
#include "dialog/preview/ControlActions.h"
#include "dialog/start/QuickHash.h"
#include "dialog/theme/DesktopSettings.hpp"
#include "dialog/theme/TapeTheme.h"
#include "dialog/toolkit/KeepToOneself.h"
#include "dialog/toolkit/OwnPasteboard.h"
#include "dialog/toolkit/QuickInterface.h"
#include "dialog/toolkit/WindowServer.h"

#include <objc/runtime.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <vector>

// Nothing but a picture.
@interface BarePicture : NSView
{
    NSBitmapImageRep* picture_;
}
@end

@implementation BarePicture

- (void)dealloc
{
    [picture_ release];
    [super dealloc];
}

- (BOOL)isOpaque
{
    return YES;
}

- (void)drawRect:(NSRect)rect
{
    const NSRect bounds = [self bounds];
    if (picture_ == nil) {
        picture_ = [[NSBitmapImageRep alloc]
            initWithBitmapDataPlanes:NULL
                          pixelsWide:static_cast<NSInteger>(NSWidth(bounds))
                          pixelsHigh:static_cast<NSInteger>(NSHeight(bounds))
                       bitsPerSample:8
                     samplesPerPixel:4
                            hasAlpha:YES
                            isPlanar:NO
                      colorSpaceName:NSCalibratedRGBColorSpace
                         bytesPerRow:0
                        bitsPerPixel:32];
    }
    [picture_ drawInRect:bounds];
}

@end

namespace bench {
namespace {

class Pool
{
  public:
    Pool() : pool_([[NSAutoreleasePool alloc] init]) {}
    ~Pool() { [pool_ release]; }
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

  private:
    NSAutoreleasePool* pool_;
};

[[noreturn]] void giveUp(const char* what)
{
    std::fprintf(stderr, "bench_dialog: %s\n", what);
    std::exit(1);
}

// Handles what comes until something holds.
void handleEvents(const std::function<bool()>& isDone, const char* what)
{
    NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:60];
    while (!isDone()) {
        const Pool pool;
        NSEvent* const event =
            [NSApp nextEventMatchingMask:NSAnyEventMask
                               untilDate:[NSDate dateWithTimeIntervalSinceNow:0.002]
                                  inMode:NSDefaultRunLoopMode
                                 dequeue:YES];
        if (event != nil)
            [NSApp sendEvent:event];
        if ([end timeIntervalSinceNow] < 0)
            giveUp(what);
    }
}

// The program's own controller and window, with nothing of the command line's but the printers.
class Running
{
  public:
    explicit Running(const dialog::CommandLine& line)
        : controller_([[DialogController alloc] initWithCommandLine:line])
    {
        [NSApp finishLaunching];
        [(id)controller_ applicationDidFinishLaunching:nil];
        waitForPanel();
        handleEvents([&] { return [nsWindow() isKeyWindow]; }, "the window gets no keyboard");
    }

    DialogController* controller() const { return controller_; }
    DialogWindow* window() const { return object_getIvar(controller_, ivar("window_")); }
    NSWindow* nsWindow() const { return [window() window]; }

    void waitForPanel() const
    {
        const Ivar loaded = ivar("loaded_");
        handleEvents([&] {
            return [controller_ isSettled] && object_getIvar(controller_, loaded) != nil;
        }, "the panel does not come");
    }
    void draw() const
    {
        [nsWindow() displayIfNeeded];
        [nsWindow() flushWindow];
    }
    // What is done a little later, too.
    void rest() const
    {
        NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:0.02];
        handleEvents([&] { return [end timeIntervalSinceNow] < 0; }, "time stands still");
    }

  private:
    Ivar ivar(const char* name) const
    {
        Ivar const found = class_getInstanceVariable([DialogController class], name);
        if (found == nullptr)
            giveUp(name);
        return found;
    }

    DialogController* controller_;
};

void measureTape(Meter& meter, const Running& running, const std::string& at)
{
    NSPopUpButton* const tapes = [running.window() tapePopUp];
    const NSInteger last = [tapes numberOfItems] - 1;
    meter.measure(
        "another tape in tape-print" + at,
        [&] {
            const Pool pool;
            [tapes selectItemAtIndex:[tapes indexOfSelectedItem] == 0 ? last : 0];
            [running.controller() chooseTape:nil];
            running.draw();
        }, nullptr, [&] { running.rest(); });
}

// What the toolkit's views cost of it: two pop-ups, three texts and a picture, each another, in a
// window where nobody decides anything.
class BareWindow
{
  public:
    BareWindow()
        : window_([[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 620, 420)
                                              styleMask:NSTitledWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO])
    {
        [window_ setReleasedWhenClosed:NO];
        CGFloat y = 380;
        for (NSPopUpButton*& popUp : popUps_) {
            popUp = add([[NSPopUpButton alloc] initWithFrame:NSMakeRect(20, y, 300, 24)
                                                   pullsDown:NO]);
            [popUp addItemsWithTitles:@[ @"12 mm tape", @"24 mm tape" ]];
            y -= 30;
        }
        for (NSTextField*& text : texts_) {
            text = add([[NSTextField alloc] initWithFrame:NSMakeRect(20, y, 300, 20)]);
            [text setEditable:NO];
            [text setBordered:NO];
            [text setDrawsBackground:YES];
            y -= 30;
        }
        picture_ = add([[BarePicture alloc] initWithFrame:NSMakeRect(340, 200, 240, 60)]);
        [window_ orderFront:nil];
        [window_ display];
    }
    ~BareWindow() { [window_ release]; }
    BareWindow(const BareWindow&) = delete;
    BareWindow& operator=(const BareWindow&) = delete;

    void showAnother() const
    {
        const NSInteger other = 1 - [popUps_[0] indexOfSelectedItem];
        // One at a time, or all that lies between the two is drawn as well.
        for (NSPopUpButton* popUp : popUps_) {
            [popUp selectItemAtIndex:other];
            [window_ displayIfNeeded];
        }
        for (NSTextField* text : texts_)
            [text setStringValue:other == 0 ? @"Tape used 100.0 mm" : @"Tape used 40.0 mm"];
        [picture_ setNeedsDisplay:YES];
        [window_ displayIfNeeded];
        [window_ flushWindow];
    }

  private:
    template <typename View>
    View* add(View* view) const
    {
        [[window_ contentView] addSubview:view];
        [view release];
        return view;
    }

    NSWindow* window_;
    std::array<NSPopUpButton*, 2> popUps_{};
    std::array<NSTextField*, 3> texts_{};
    BarePicture* picture_ = nil;
};

void measureBareTape(Meter& meter, const Running& running, const std::string& at)
{
    const BareWindow bare;
    meter.measure(
        "another tape, bare" + at,
        [&] {
            const Pool pool;
            bare.showAnother();
        }, nullptr, [&] { running.rest(); });
}

// Opened, drawn, and closed by Escape, which waits for it already: for the first time with these
// tapes, and again.
void measureList(Meter& meter, const Running& running, const std::string& at)
{
    NSPopUpButton* const tapes = [running.window() tapePopUp];
    if ([tapes numberOfItems] <= static_cast<NSInteger>(dialog::kMostMenuItems))
        return; // the toolkit's own menu, which waits for the mouse
    std::vector<std::string> titles;
    for (NSInteger i = 0; i < [tapes numberOfItems]; ++i)
        titles.push_back([[tapes itemTitleAtIndex:i] UTF8String]);
    const auto open = [&] {
        const Pool pool;
        [tapes performClick:nil];
    };
    const auto escape = [&] {
        const Pool pool;
        [NSApp postEvent:[NSEvent keyEventWithType:NSKeyDown location:NSZeroPoint modifierFlags:0
                                               timestamp:0
                                            windowNumber:[running.nsWindow() windowNumber]
                                                 context:nil
                                              characters:@"\x1B"
                             charactersIgnoringModifiers:@"\x1B"
                                               isARepeat:NO
                                                 keyCode:0]
                 atStart:NO];
    };
    const auto fillAnew = [&] {
        const Pool pool;
        const NSInteger chosen = [tapes indexOfSelectedItem];
        [running.window() fill:tapes with:titles];
        [tapes selectItemAtIndex:chosen];
        running.draw();
        escape();
    };
    meter.measure("list of tapes" + at, open, fillAnew, [&] { running.rest(); });
    meter.measure("list of tapes again" + at, open, escape, [&] { running.rest(); });
}

// What the toolkit's window costs of it, with an empty view to scroll.
void measureBareList(Meter& meter, const Running& running, const std::string& at)
{
    meter.measure(
        "list, bare" + at,
        [&] {
            const Pool pool;
            NSWindow* const window =
                [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 300, 400)
                                            styleMask:NSBorderlessWindowMask
                                              backing:NSBackingStoreBuffered
                                                defer:NO];
            [window setReleasedWhenClosed:NO];
            [window setLevel:NSPopUpMenuWindowLevel];
            NSScrollView* const scroll =
                [[NSScrollView alloc] initWithFrame:NSMakeRect(1, 1, 298, 398)];
            [scroll setHasVerticalScroller:YES];
            NSView* const rows = [[NSView alloc] initWithFrame:NSMakeRect(0, 0, 280, 2000)];
            [scroll setDocumentView:rows];
            [[window contentView] addSubview:scroll];
            [window orderFront:nil];
            [window displayIfNeeded];
            [window flushWindow];
            [window orderOut:nil];
            [rows release];
            [scroll release];
            [window release];
        }, nullptr, [&] { running.rest(); });
}

void measurePrinter(Meter& meter, const Running& running, const std::string& at)
{
    NSPopUpButton* const printers = [running.window() printerPopUp];
    const NSInteger before = [printers indexOfSelectedItem];
    // What is tidied up after the drawing is not waited for.
    std::optional<Pool> pool;
    meter.measure(
        "another printer" + at,
        [&] {
            [printers selectItemAtIndex:before + ([printers indexOfSelectedItem] == before)];
            [running.controller() choosePrinter:nil];
            running.waitForPanel();
            running.draw();
        }, [&] { pool.emplace(); },
        [&] {
            pool.reset();
            running.rest();
        });
}

} // namespace
} // namespace bench

// bench_dialog ROW-ENDING PPD PPD | bench_dialog ROW-ENDING QUEUE (the first of two alike)
int main(int argc, char** argv, char** environment)
{
    const bench::Pool pool;
    [NSProcessInfo initializeWithArguments:argv count:1 environment:environment];
    dialog::keepHashesOfConstantTexts();
    [[NSUserDefaults standardUserDefaults] registerDefaults:@{@"GSSuppressAppIcon" : @"YES"}];
    if (argc < 3)
        bench::giveUp("usage: bench_dialog ROW-ENDING PPD PPD | ROW-ENDING QUEUE");
    dialog::CommandLine line;
    line.plugin = PLUGIN_PATH;
    line.noMemory = true;
    if (argc == 3)
        line.printer = argv[2];
    else
        line.ppdFiles.assign(argv + 2, argv + argc);

    [NSImageRep unregisterImageRepClass:NSClassFromString(@"GSImageMagickImageRep")];
    dialog::keepToOneself();
    dialog::readInterfaceFilesQuickly();
    dialog::setUpPasteboards();
    dialog::askWindowServerLess();
    [TapePrintApplication sharedApplication];
    dialog::useTheme(dialog::appearanceOnThisDesktop(dialog::WantedAppearance::Light));

    const bench::Running running(line);
    bench::Meter meter;
    meter.patience = std::chrono::milliseconds(1000);
    const std::string at = std::string(" ") + argv[1];
    bench::measureTape(meter, running, at);
    bench::measureList(meter, running, at);
    bench::measurePrinter(meter, running, at);
    bench::measureBareTape(meter, running, at);
    bench::measureBareList(meter, running, at);
    return 0;
}
