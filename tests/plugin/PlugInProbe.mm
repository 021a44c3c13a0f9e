// PlugInProbe.mm - asks the bundle's principal object about the system's release and says what it
// answered.  The answer is kept for the life of a process, so each release needs one of its own.
//
// Writes one line: the version queries in order, the answers of two objects to initWithBundle:,
// whether the first kept the bundle, the queries made for the second.
#import <Foundation/Foundation.h>

#include <CoreServices/CoreServices.h>
#include <dlfcn.h>
#include <objc/runtime.h>

#include <cstdio>
#include <cstdlib>
#include <string>

static std::string queries;

extern "C" __attribute__((visibility("default"))) OSErr Gestalt(OSType selector, SInt32* response)
{
    queries += queries.empty() ? "" : " ";
    for (int shift = 24; shift >= 0; shift -= 8)
        queries += static_cast<char>(selector >> shift);
    return reinterpret_cast<decltype(&Gestalt)>(dlsym(RTLD_NEXT, "Gestalt"))(selector, response);
}

@protocol PlugInUnderTest <NSObject>
- (BOOL)runningOnLeopardOrLater;
- (BOOL)initWithBundle:(NSBundle*)bundle;
@end

static bool keptBundle(id plugin)
{
    const Ivar ivar = class_getInstanceVariable(object_getClass(plugin), "pluginBundle");
    return ivar != nullptr && object_getIvar(plugin, ivar) != nil;
}

int main()
{
    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    const char* const elsewhere =
        std::getenv("PLUGIN_UNDER_TEST"); // as support/PanelTest.hpp has it
    const char* const path = elsewhere != nullptr ? elsewhere : PLUGIN_PATH;
    NSBundle* bundle = [NSBundle bundleWithPath:[NSString stringWithUTF8String:path]];
    if (![bundle load]) {
        std::fprintf(stderr, "The bundle at %s cannot be loaded.\n", path);
        return 1;
    }
    id first = [[bundle principalClass] alloc];
    id second = [[bundle principalClass] alloc];
    const BOOL firstAnswer = [(id<PlugInUnderTest>)first initWithBundle:bundle];
    const std::string firstQueries = queries;
    queries.clear();
    const BOOL secondAnswer = [(id<PlugInUnderTest>)second initWithBundle:bundle];
    const BOOL asked = [(id<PlugInUnderTest>)second runningOnLeopardOrLater];
    std::printf("%s: %s, %s, %s; bundle %s; then%s\n", firstQueries.c_str(),
                firstAnswer ? "YES" : "NO", secondAnswer ? "YES" : "NO", asked ? "YES" : "NO",
                keptBundle(first) ? "kept" : "not kept",
                queries.empty() ? " none" : queries.c_str());
    [first release];
    [second release];
    [pool release];
    return 0;
}
