#include "fuzz/Process.h"

#include <cstdio>
#include <cstdlib>

namespace fuzz {

void start(Windows windows)
{
    const Pool pool;
    if (windows == Windows::Yes)
        [NSApplication sharedApplication];
    require([bundle() load], "the bundle cannot be loaded");
}

NSBundle* bundle()
{
    static NSBundle* const loaded = [[NSBundle bundleWithPath:@PLUGIN_PATH] retain];
    return loaded;
}

Class classNamed(const char* name)
{
    const Class found = NSClassFromString([NSString stringWithUTF8String:name]);
    require(found != Nil, name);
    return found;
}

void require(bool holds, const char* sentence)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", sentence);
    std::abort();
}

NSString* stringOf(std::string_view bytes)
{
    return [[[NSString alloc] initWithBytes:bytes.data() length:bytes.size()
                                   encoding:NSUTF8StringEncoding] autorelease];
}

} // namespace fuzz

// In front of the toolkit's own, which would wait for a click.
extern "C" __attribute__((visibility("default"))) NSInteger
NSRunAlertPanel(NSString* title, NSString* message, NSString* defaultButton,
                NSString* alternateButton, NSString* otherButton, ...)
{
    return NSAlertDefaultReturn;
}
