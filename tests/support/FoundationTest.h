// FoundationTest.h - the main program of a test that needs the toolkit's objects but no display.
// For one source of a program.
#pragma once

#include <gtest/gtest.h>

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

// All tests, or their names when they are only listed; nothing counts as a leak.  The exit status.
inline int runFoundationTests(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
#ifdef LOOKS_FOR_LEAKS
    __lsan_disable(); // what the toolkit sets up for the life of the process
#endif
    return RUN_ALL_TESTS();
}
