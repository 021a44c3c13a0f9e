// What a window gives to the screen when parts of it have changed.

#include "dialog/keyboard/KeyboardWindow.h"

#include "support/ToolkitTest.h"

#include <GNUstepGUI/GSDisplayServer.h>
#include <objc/runtime.h>

@interface Patch : NSView
@end

@implementation Patch

- (BOOL)isOpaque
{
    return YES;
}

- (void)drawRect:(NSRect)rect
{
    NSRectFill(rect);
}

@end

namespace {

using FlushWindowRect = void (*)(id, SEL, NSRect, int);
FlushWindowRect flushOfToolkit = nullptr;
int flushes = 0;
NSRect lastFlushed;

void flush(id self, SEL selector, NSRect rect, int window)
{
    ++flushes;
    lastFlushed = rect;
    flushOfToolkit(self, selector, rect, window);
}

TEST(KeyboardWindow, GivesAllThatHasChangedToTheScreenAtOnce)
{
    KeyboardWindow* const window =
        [[KeyboardWindow alloc] initWithContentRect:NSMakeRect(100, 100, 400, 300)
                                          styleMask:NSTitledWindowMask
                                            backing:NSBackingStoreBuffered
                                              defer:NO];
    [window setReleasedWhenClosed:NO];
    Patch* const low = [[[Patch alloc] initWithFrame:NSMakeRect(10, 20, 50, 20)] autorelease];
    Patch* const high = [[[Patch alloc] initWithFrame:NSMakeRect(300, 250, 50, 20)] autorelease];
    [[window contentView] addSubview:low];
    [[window contentView] addSubview:high];
    [window orderFront:nil];
    [window display];
    [window flushWindow];

    flushes = 0;
    [low setNeedsDisplay:YES];
    [high setNeedsDisplay:YES];
    [window displayIfNeeded];
    EXPECT_EQ(flushes, 1);
    EXPECT_TRUE(NSContainsRect(lastFlushed, [low convertRect:[low bounds] toView:nil]));
    EXPECT_TRUE(NSContainsRect(lastFlushed, [high convertRect:[high bounds] toView:nil]));

    [window displayIfNeeded];
    EXPECT_EQ(flushes, 1);
    [window close];
    [window release];
}

void countFlushes()
{
    const Method method =
        class_getInstanceMethod([GSCurrentServer() class], @selector(flushwindowrect::));
    flushOfToolkit = reinterpret_cast<FlushWindowRect>(
        method_setImplementation(method, reinterpret_cast<IMP>(&flush)));
}

} // namespace

int main(int argc, char** argv, char** environment)
{
    testing::InitGoogleTest(&argc, argv);
    return runToolkitTests(argv, environment, {.withApplication = &countFlushes});
}
