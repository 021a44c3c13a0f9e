// Panels that come and go: nothing of theirs stays behind, however often and however they end.
//
//   PANEL_CYCLES   how often a panel is opened, shown, edited, printed from and closed (default
//   150)

#include "pagesettings/PanelSession.hpp"
#include "support/PanelTestPrinting.hpp"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>

// The toolkit's header hides them from builds without assertions; the library has them always.
extern "C" BOOL GSDebugAllocationActive(BOOL active);
extern "C" int GSDebugAllocationCount(Class counted);

namespace {

constexpr const char* kOurClasses[] = {"PageSettingPDE13_v100_", "PDEChoice", "PDEFormatter",
                                       "PDETextField13_v100_", "PDEChoiceMatrix13_v100_"};

[[maybe_unused]] int cycles() // sanitized builds do not measure memory
{
    const char* const wanted = std::getenv("PANEL_CYCLES");
    return wanted == nullptr ? 150 : std::max(1, std::atoi(wanted));
}

// Objects of our classes that are alive and were made since.
class Objects
{
  public:
    Objects() { GSDebugAllocationActive(YES); }
    ~Objects() { GSDebugAllocationActive(NO); }
    Objects(const Objects&) = delete;
    Objects& operator=(const Objects&) = delete;

    static Texts alive()
    {
        Texts names;
        for (const char* const name : kOurClasses) {
            if (GSDebugAllocationCount(classNamed(name)) > 0)
                names.push_back(name);
        }
        return names;
    }
};

std::ptrdiff_t openDescriptors()
{
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
}

void runCycle()
{
    const ScopedPool pool;
    FakeDialog dialog(
        usbDialog(labelPrinter({.printMode = printModes(), .printModeDefault = "S300"})));
    PanelSession session(dialog, dialog.callback());
    session.open();
    session.work();
    session.print();
    EXPECT_EQ(session.escaped, Texts());
    EXPECT_EQ(dialog.marked("Resolution"), "300x600dpi");
    takeAlerts();
}

void runTwoAtOnce()
{
    const ScopedPool pool;
    FakeDialog millimetres(usbDialog(labelPrinter()));
    FakeDialog inches(usbDialog(labelPrinter({.unit = "inch"})));
    auto first = std::make_unique<PanelSession>(millimetres, millimetres.callback());
    PanelSession second(inches, inches.callback());
    first->open();
    second.open();
    first->work();
    first->print();
    first.reset();
    second.work();
    second.print();
    EXPECT_EQ(second.escaped, Texts());
    takeAlerts();
}

// The user closes the dialog while the alert is still up.
void runWithAlertUp()
{
    const ScopedPool pool;
    FakeDialog dialog(usbDialog(labelPrinter()));
    auto session = std::make_unique<PanelSession>(dialog, dialog.callback());
    session->open();
    id const panel = session->panel();
    NSTextField* const margin = ivarOf<NSTextField*>(panel, "mMarginTxFld");
    NSTextField* const length = ivarOf<NSTextField*>(panel, "mLengthTxFld");
    [length setStringValue:@"40"];
    [margin setStringValue:@"30"];
    duringNextAlert([&] { session.reset(); });
    [panel controlTextDidEndEditing:ShownPanel::notification(margin)];
    EXPECT_NE(session, nullptr) << "only a key or the mouse ends an edit";
    setCurrentEvent(NSKeyDown);
    [panel controlTextDidEndEditing:ShownPanel::notification(margin)];
    setCurrentEvent(0);
    EXPECT_EQ(session, nullptr) << "no alert came up";
    duringNextAlert(nullptr);
    takeAlerts();
}

// The dialog closes before its window has grown, and then something still happens to the view.
void runWhileWaitingToGrow()
{
    const ScopedPool pool;
    FakeDialog dialog(usbDialog(labelPrinter()));
    NSView* view = nil;
    {
        PanelSession session(dialog, dialog.callback());
        session.open();
        view = [[session.view() retain] autorelease];
        const ScopedKeyWindow small(100);
        [session.panel() setViewFrameSize:[view frame].size];
    }
    dialog.calls.clear();
    [[NSNotificationCenter defaultCenter]
        postNotificationName:NSViewDidUpdateTrackingAreasNotification
                      object:view];
    EXPECT_EQ(dialog.calls, Texts()) << "a panel that is gone told the dialog something";
}

void runEveryKind(int times)
{
    for (int i = 0; i < times; ++i) {
        runCycle();
        PrintingCalls::taken(); // the test's own record must not grow either
        if (i % 10 != 0)
            continue;
        runTwoAtOnce();
        runWithAlertUp();
        runWhileWaitingToGrow();
    }
}

} // namespace

TEST(Lifetimes, LeaveNoObjectOfOursBehindHoweverAPanelEnds)
{
    const Objects objects;
    runCycle();
    EXPECT_EQ(Objects::alive(), Texts());
    runTwoAtOnce();
    EXPECT_EQ(Objects::alive(), Texts());
    runWithAlertUp();
    EXPECT_EQ(Objects::alive(), Texts());
    runWhileWaitingToGrow();
    EXPECT_EQ(Objects::alive(), Texts());
}

TEST(Lifetimes, OfObjectsAreCountedWhileAPanelIsOpen)
{
    const Objects objects;
    FakeDialog dialog(usbDialog(labelPrinter()));
    PanelSession session(dialog, dialog.callback());
    session.open();
    EXPECT_EQ(Objects::alive(), Texts(std::begin(kOurClasses), std::end(kOurClasses)));
}

TEST(Lifetimes, LeaveNoDescriptorBehind)
{
    runEveryKind(1);
    const auto before = openDescriptors();
    runEveryKind(10);
    EXPECT_EQ(openDescriptors(), before);
}

// A sanitizer's own books grow with every allocation; it looks for leaks itself.
#if !defined(__has_feature) || !__has_feature(address_sanitizer)
TEST(Lifetimes, KeepTheProcessAsLargeAsItWas)
{
    // 64 bytes a cycle are less than any object: a leak shows in a few cycles as in thousands.
    const std::ptrdiff_t room = std::min(64 * 1024, 64 * cycles());
    const auto inUse = [] {
        const struct mallinfo2 information = mallinfo2();
        return static_cast<std::ptrdiff_t>(information.uordblks + information.hblkhd);
    };
    ASSERT_STREQ(std::getenv("GLIBC_TUNABLES"), "glibc.malloc.tcache_count=0")
        << "what threads keep for reuse would count as in use";
    runEveryKind(30);
    const std::ptrdiff_t before = inUse();
    runEveryKind(cycles());
    const std::ptrdiff_t grown = inUse() - before;
    RecordProperty("cycles", cycles());
    RecordProperty("grown", static_cast<int>(grown));
    std::printf("%d cycles: %td bytes more in use\n", cycles(), grown);
    EXPECT_LE(grown, room);
}
#endif
