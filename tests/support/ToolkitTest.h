// ToolkitTest.h - the main program of a test that opens windows, without the bundle.
#pragma once

#include <AppKit/AppKit.h>
#include <gtest/gtest.h>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#define LOOKS_FOR_LEAKS 1
#endif
#endif

struct ToolkitSetUp
{
    double scale = 1; // pixels to a point
    void (*beforeApplication)() = [] {};
    void (*withApplication)() = [] {};
};

// All tests, on the display that there is; nothing counts as a leak.  The exit status.
inline int runToolkitTests(char** argv, char** environment, const ToolkitSetUp& setUp = {})
{
#ifdef LOOKS_FOR_LEAKS
    __lsan_disable(); // what the toolkit sets up for the life of the process
#endif
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    // Of the words only the program's own: the others are no settings.
    [NSProcessInfo initializeWithArguments:argv count:1 environment:environment];
    [[NSUserDefaults standardUserDefaults] registerDefaults:@{
        @"GSSuppressAppIcon" : @"YES",
        @"GSScaleFactor" : [NSNumber numberWithDouble:setUp.scale]
    }];
    setUp.beforeApplication();
    [NSApplication sharedApplication];
    setUp.withApplication();
    const int status = RUN_ALL_TESTS();
    [pool drain];
    return status;
}
