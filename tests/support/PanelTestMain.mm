// PanelTestMain.mm - the main program of every test that runs inside a process with the bundle.
//
// A bundle or display that is missing ends the program with an error: a skipped test would read as
// a passed one.
#include "support/PanelTest.hpp"
#include "support/PanelTestPrinting.hpp"

#include <cstdio>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#define LOOKS_FOR_LEAKS 1

// The toolkit's runtime keeps its class tables for the life of the process.
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions()
{
    return "leak:objc_malloc\n"
           "leak:class_copyMethodList\n";
}
#endif
#endif

namespace {

class PoolPerTest : public testing::EmptyTestEventListener
{
    void OnTestStart(const testing::TestInfo&) override
    {
        pool_ = [[NSAutoreleasePool alloc] init];
        PrintingCalls::reset();
        takeAlerts();
    }

    void OnTestEnd(const testing::TestInfo&) override
    {
        [pool_ release];
        pool_ = nil;
    }

    NSAutoreleasePool* pool_ = nil;
};

bool loadPlugin()
{
    NSBundle* bundle = pluginBundle();
    if (bundle == nil) {
        std::fprintf(stderr, "There is no bundle at %s.\n", pluginPath());
        return false;
    }
    if (![bundle load]) {
        std::fprintf(stderr, "The bundle at %s cannot be loaded.\n", pluginPath());
        return false;
    }
    if ([bundle principalClass] == Nil) {
        std::fprintf(stderr, "The bundle at %s names no principal class.\n", pluginPath());
        return false;
    }
    return true;
}

// Once through everything, so that what the toolkit keeps for good is there before leaks count.
void warmUp()
{
    const ScopedPool pool;
    for (int i = 0; i < 2; ++i) {
        FakeDialog dialog({.ppd = PPDText().paper("TC24", "24 mm", 68, 72)});
        TestPanel panel(dialog);
        [panel panelView];
        [panel willShow];
        [panel summaryInfo];
    }
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
#ifdef LOOKS_FOR_LEAKS
    __lsan_disable();
#endif
    [NSApplication sharedApplication];
    const bool loaded = loadPlugin();
#ifdef LOOKS_FOR_LEAKS
    if (loaded)
        warmUp();
    __lsan_enable();
#else
    (void)warmUp;
#endif
    if (!loaded)
        return 1;
    testing::UnitTest::GetInstance()->listeners().Append(new PoolPerTest);
    const int result = RUN_ALL_TESTS();
    [pool release];
    return result;
}
