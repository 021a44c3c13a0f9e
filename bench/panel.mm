// panel.mm - the rows about the panel: opening it, showing it again, and every way of using it.
#include "bench/Host.hpp"
#include "bench/Meter.hpp"
#include "dialog/toolkit/WindowServer.h"

#include <cups/ppd.h>
#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

@interface Nobody : NSObject
- (void)hear:(id)sender;
@end

@implementation Nobody
- (void)hear:(id)sender
{
}
@end

namespace bench {
namespace {

struct Size
{
    int sizes;
    int choices;

    std::string of(const char* row) const
    {
        return std::string(row) + " sizes=" + std::to_string(sizes) +
               " choices=" + std::to_string(choices);
    }
};

// The dialog's own road to a panel on the screen.
void open(std::optional<Panel>& panel, const Dialog& dialog, const Stage& stage)
{
    const Pool pool;
    panel.emplace(dialog);
    stage.show(panel->view());
    [panel->get() willShow];
    stage.draw();
}

void openBare(std::optional<BareView>& bare, const Stage& stage)
{
    const Pool pool;
    bare.emplace();
    stage.show(bare->view());
    stage.draw();
}

template <class Shown>
void close(std::optional<Shown>& shown, const Stage& stage)
{
    const Pool pool;
    stage.clear(shown->view());
    shown.reset();
    stage.draw();
}

void measureOpening(Meter& meter, const Stage& stage, const Dialog& dialog, Size size)
{
    std::optional<Panel> panel;
    std::optional<BareView> bare;
    // What closing has freed is put together now and not in the middle of the next opening.
    const auto settle = [] { malloc_trim(0); };
    meter.compare({{size.of("open, panel"), [&] { open(panel, dialog, stage); }, settle,
                    [&] { close(panel, stage); }},
                   {size.of("open, bare"), [&] { openBare(bare, stage); }, settle,
                    [&] { close(bare, stage); }}});
}

// Taken out of the window, drawn without it, and shown again: with all that the dialog sends, and
// the view alone.
void measureShowingAgain(Meter& meter, const Stage& stage, const Panel& panel, Size size)
{
    const auto show = [&](id<MeasuredPanel> shown) {
        const Pool pool;
        stage.show(panel.view());
        [shown willShow];
        stage.draw();
    };
    const auto takeOut = [&] {
        const Pool pool;
        stage.clear(panel.view());
        stage.draw();
    };
    meter.compare({{size.of("again, panel"), [&] { show(panel.get()); }, takeOut},
                   {size.of("again, bare"), [&] { show(nil); }, takeOut}});
}

// Without drawing.
void measureCalls(Meter& meter, const Panel& panel, Size size)
{
    const id<MeasuredPanel> shown = panel.get();
    meter.measure(size.of("update"), [&] {
        const Pool pool;
        [shown updateUI];
    });
    meter.measure(size.of("summary"), [&] {
        const Pool pool;
        [shown summaryInfo];
    });
    meter.measure(size.of("saves"), [&] {
        const Pool pool;
        [shown saveSetting_Length];
        [shown saveSetting_Margin];
        [shown saveSetting_Quality];
        [shown saveSetting_Resolution];
        [shown saveSetting_Compress];
        [shown saveSetting_VnResolution];
    });
}

NSTextField* plainField(NSTextField* like)
{
    NSTextField* const field = [[[NSTextField alloc] initWithFrame:[like frame]] autorelease];
    [field setAlignment:[like alignment]];
    [field setFont:[like font]];
    [field setBezeled:YES];
    return field;
}

void edit(const Stage& stage, NSTextField* field, NSString* text)
{
    const Pool pool;
    if ([field currentEditor] == nil)
        [stage.window() makeFirstResponder:field];
    NSText* const editor = [field currentEditor];
    [editor setString:text];
    [editor setSelectedRange:NSMakeRange([text length], 0)];
    stage.draw();
}

struct Key
{
    const char* name;
    unichar character;
    NSString* proposed; // what it makes of "123"
};
const Key kKeys[] = {{"digit", u'5', @"1235"}, {"point", u'.', @"123."}};

void measureKeys(Meter& meter, const Stage& stage, const Panel& panel, Size size)
{
    NSTextField* const length = panel.control("mLengthTxFld");
    NSTextField* const plain = plainField(length);
    [plain setFrameOrigin:NSMakePoint(20, 20)];
    [[stage.window() contentView] addSubview:plain];
    const auto press = [&](unichar key, bool draws) {
        const Pool pool;
        stage.pressKey(key);
        if (draws)
            stage.draw();
    };
    for (const bool draws : {false, true}) {
        const std::string row = draws ? "key to drawn, " : "key to checked, ";
        // The point is the dearest key: the text before it is searched.
        for (const Key& key : kKeys) {
            const auto named = [&](const char* side) {
                return size.of((row + key.name + ", " + side).c_str());
            };
            const auto pressIt = [&] { press(key.character, draws); };
            meter.compare({{named("panel"), pressIt, [&] { edit(stage, length, @"123"); }},
                           {named("plain"), pressIt, [&] { edit(stage, plain, @"123"); }}});
        }
    }

    // The check alone, as the field's editor asks it.
    NSFormatter* const formatter = [length formatter];
    for (const Key& key : kKeys) {
        meter.measure(size.of((std::string("check, ") + key.name).c_str()), [&] {
            NSString* offered = key.proposed;
            NSRange range = NSMakeRange(4, 0);
            NSString* error = nil;
            [formatter isPartialStringValid:&offered proposedSelectedRange:&range
                             originalString:@"123"
                      originalSelectedRange:NSMakeRange(3, 0)
                           errorDescription:&error];
        });
    }
    [stage.window() makeFirstResponder:nil];
    [plain removeFromSuperview];
    stage.draw();
}

// The control itself, with somebody behind it who does nothing.
class Deaf
{
  public:
    explicit Deaf(NSControl* control)
        : control_(control), target_([control target]), action_([control action])
    {
        [control_ setTarget:nobody()];
        [control_ setAction:@selector(hear:)];
    }
    ~Deaf()
    {
        [control_ setTarget:target_];
        [control_ setAction:action_];
    }
    Deaf(const Deaf&) = delete;
    Deaf& operator=(const Deaf&) = delete;

  private:
    static id nobody()
    {
        static const id only = [[Nobody alloc] init];
        return only;
    }

    NSControl* control_;
    id target_;
    SEL action_;
};

void measureControls(Meter& meter, const Stage& stage, const Panel& panel, Dialog& dialog,
                     Size size)
{
    dialog.marksChoices = true;
    NSSlider* const slider = panel.control("mLengthSlider");
    NSTextField* const length = panel.control("mLengthTxFld");
    NSMatrix* const quality = panel.control("mPrintQualityRdBtn");

    std::optional<Deaf> deaf;
    const auto hear = [&] { deaf.reset(); };

    const auto drag = [&] {
        const Pool pool;
        [slider setFloatValue:[slider floatValue] == 100 ? 110 : 100];
        [slider sendAction:[slider action] to:[slider target]];
        stage.draw();
    };
    // The floor: the slider, and its field showing its number.
    const auto dragBoth = [&] {
        const Pool pool;
        [slider setFloatValue:[slider floatValue] == 100 ? 110 : 100];
        [length setStringValue:[slider floatValue] == 100 ? @"100.0" : @"110.0"];
        stage.draw();
    };
    meter.compare(
        {{size.of("slider, panel"), drag},
         {size.of("slider, bare"), drag, [&] { deaf.emplace(slider); }, hear},
         {size.of("slider, bare with field"), dragBoth, [&] { deaf.emplace(slider); }, hear}});

    const auto other = [](NSMatrix* matrix) { return [matrix selectedRow] == 0 ? 1 : 0; };
    const auto choose = [&] {
        const Pool pool;
        [quality selectCellAtRow:other(quality) column:0];
        [quality sendAction];
        stage.draw();
    };
    const Meter::Side bareChoice{size.of("radio, bare"), choose, [&] { deaf.emplace(quality); },
                                 hear};
    meter.compare({{size.of("radio, panel"), choose}, bareChoice});

    meter.measure(size.of("elsewhere, panel"), [&] {
        const Pool pool;
        NSString* const keyword =
            [NSString stringWithUTF8String:choiceKeyword("VnPriority", other(quality)).c_str()];
        [panel.get() PPDOptionKeyValueDidChange:@"VnPriority" ppdChoice:keyword];
        [panel.get() updateUI];
        stage.draw();
    });
    dialog.marksChoices = false;
}

void measureTape(Meter& meter, const Stage& stage, const Panel& panel, Dialog& dialog, Size size)
{
    int paper = size.sizes - 1;
    meter.measure(size.of("another tape"), [&] {
        const Pool pool;
        paper = paper == 0 ? size.sizes - 1 : 0;
        dialog.choosePaper(paper);
        [panel.get() updateUI];
        stage.draw();
    });
}

// What a thousand dialogs leave behind, once the toolkit has what it keeps for good; bytes each.
template <class OpenAndClose>
double bytesKept(OpenAndClose openAndClose)
{
    constexpr int kWarm = 200;
    constexpr int kCounted = 1000;
    std::size_t before = 0;
    for (int i = 0; i < kWarm + kCounted; ++i) {
        if (i == kWarm)
            before = mallinfo2().uordblks;
        openAndClose();
    }
    return (static_cast<double>(mallinfo2().uordblks) - static_cast<double>(before)) / kCounted;
}

void measureMemory(const Stage& stage)
{
    std::optional<BareView> bare;
    Meter::figure("memory kept by an opening, bare", "bytes", bytesKept([&] {
                      openBare(bare, stage);
                      close(bare, stage);
                  }));
    const Dialog dialog(10, 10);
    std::optional<Panel> panel;
    Meter::figure("memory kept by an opening", "bytes", bytesKept([&] {
                      open(panel, dialog, stage);
                      close(panel, stage);
                  }));
}

// The least that a dialog with this panel does on its start, for whoever looks from outside.
[[noreturn]] void showBare()
{
    [NSImageRep unregisterImageRepClass:NSClassFromString(@"GSImageMagickImageRep")];
    [NSApplication sharedApplication];
    NSWindow* const window = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 100, 600, 500)
                                                         styleMask:NSTitledWindowMask
                                                           backing:NSBackingStoreBuffered
                                                             defer:NO];
    const BareView bare;
    [[window contentView] addSubview:bare.view()];
    // A blinking insertion point would never end.
    for (const char* const field : {"mLengthTxFld", "mMarginTxFld"})
        [(NSTextField*)bare.control(field) setEditable:NO];
    [window makeKeyAndOrderFront:nil];
    [NSApp run];
    std::exit(0);
}

// A view, with the keyboard in one of its controls, for whoever types from outside.
[[noreturn]] void letType(const Stage& stage, id control)
{
    [stage.window() makeFirstResponder:control];
    for (;;) {
        const Pool pool;
        [NSApp sendEvent:[NSApp nextEventMatchingMask:NSAnyEventMask
                                            untilDate:[NSDate distantFuture]
                                               inMode:NSDefaultRunLoopMode
                                              dequeue:YES]];
        stage.draw();
    }
}

[[noreturn]] void showPanel(const char* control)
{
    dialog::askWindowServerLess();
    [NSApplication sharedApplication];
    Dialog dialog(10, 2);
    dialog.marksChoices = true;
    const Stage stage;
    std::optional<Panel> panel;
    open(panel, dialog, stage);
    letType(stage, panel->control(control));
}

// The same controls with nothing behind them.
[[noreturn]] void showBareControl(const char* control)
{
    [NSApplication sharedApplication];
    const Stage stage;
    std::optional<BareView> bare;
    openBare(bare, stage);
    letType(stage, bare->control(control));
}

void measure(Meter& meter, const Stage& stage, Size size)
{
    const Pool pool;
    Dialog dialog(size.sizes, size.choices);
    measureOpening(meter, stage, dialog, size);
    std::optional<Panel> panel;
    open(panel, dialog, stage);
    measureShowingAgain(meter, stage, *panel, size);
    measureCalls(meter, *panel, size);
    measureKeys(meter, stage, *panel, size);
    measureControls(meter, stage, *panel, dialog, size);
    measureTape(meter, stage, *panel, dialog, size);
    close(panel, stage);
}

} // namespace
} // namespace bench

// bench_panel bare | [bare-]field | [bare-]choice | memory | SIZES CHOICES ...
int main(int argc, char** argv, char** environment)
{
    const bench::Pool pool;
    // The toolkit takes every plain word for a document to open.
    [NSProcessInfo initializeWithArguments:argv count:1 environment:environment];
    [[NSUserDefaults standardUserDefaults] registerDefaults:@{@"GSSuppressAppIcon" : @"YES"}];
    if (argc == 2 && std::strcmp(argv[1], "bare") == 0)
        bench::showBare();
    if (argc == 2 && std::strcmp(argv[1], "field") == 0)
        bench::showPanel("mLengthTxFld");
    if (argc == 2 && std::strcmp(argv[1], "choice") == 0)
        bench::showPanel("mCompressRdBtn");
    if (argc == 2 && std::strcmp(argv[1], "bare-field") == 0)
        bench::showBareControl("mLengthTxFld");
    if (argc == 2 && std::strcmp(argv[1], "bare-choice") == 0)
        bench::showBareControl("mCompressRdBtn");
    [NSApplication sharedApplication];
    bench::loadedBundle();
    const bench::Stage stage;
    if (argc == 2 && std::strcmp(argv[1], "memory") == 0) {
        bench::measureMemory(stage);
        return 0;
    }
    bench::Meter meter;
    for (int i = 1; i + 1 < argc; i += 2)
        bench::measure(meter, stage, {std::atoi(argv[i]), std::atoi(argv[i + 1])});
    return 0;
}
