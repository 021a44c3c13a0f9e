// What the window server is asked while a window is drawn and typed into.

#include "dialog/toolkit/WindowServer.h"

#include "support/ToolkitTest.h"

#include <dlfcn.h>

#include <cstdlib>
#include <functional>
#include <string>

@interface CountingView : NSView
{
  @public
    int resets_;
}
@end

@implementation CountingView

- (BOOL)isOpaque
{
    return YES;
}

- (BOOL)acceptsFirstResponder
{
    return YES;
}

- (void)keyDown:(NSEvent*)event
{
    [[self window] invalidateCursorRectsForView:self];
}

- (void)resetCursorRects
{
    ++resets_;
    [self addCursorRect:[self bounds] cursor:[NSCursor IBeamCursor]];
}

- (void)drawRect:(NSRect)rect
{
    NSRectFill(rect);
}

@end

namespace {

int questions = 0;
int icons = 0; // properties of a picture's size

bool waitFor(const std::function<bool()>& isSo)
{
    NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:20];
    while (!isSo() && [end timeIntervalSinceNow] > 0) {
        NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
        NSEvent* const event =
            [NSApp nextEventMatchingMask:NSAnyEventMask
                               untilDate:[NSDate dateWithTimeIntervalSinceNow:0.02]
                                  inMode:NSDefaultRunLoopMode
                                 dequeue:YES];
        if (event != nil) {
            [NSApp sendEvent:event];
        }
        [pool drain];
    }
    return isSo();
}

// Until nothing more comes.
void rest()
{
    NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:0.3];
    waitFor([&] { return [end timeIntervalSinceNow] < 0; });
}

class WindowServer : public testing::Test
{
  protected:
    WindowServer()
        : window_([[NSWindow alloc] initWithContentRect:NSMakeRect(200, 200, 300, 200)
                                              styleMask:NSTitledWindowMask
                                                backing:NSBackingStoreBuffered
                                                  defer:NO]),
          view_([[[CountingView alloc] initWithFrame:NSMakeRect(0, 0, 300, 200)] autorelease])
    {
        [window_ setReleasedWhenClosed:NO];
        [window_ setContentView:view_];
        [window_ setAcceptsMouseMovedEvents:YES];
        [window_ makeKeyAndOrderFront:nil];
        [window_ makeFirstResponder:view_];
        EXPECT_TRUE(waitFor([&] { return [window_ isKeyWindow]; }));
        rest();
    }
    ~WindowServer() override
    {
        [window_ orderOut:nil];
        [window_ release];
        rest();
    }

    void draw() const
    {
        [view_ setNeedsDisplay:YES];
        [window_ displayIfNeeded];
        [window_ flushWindow];
    }

    NSWindow* window_;
    CountingView* view_;
};

TEST_F(WindowServer, IsNotAskedForTheFrameEachTimeSomethingIsDrawn)
{
    draw();
    const int before = questions;
    for (int i = 0; i < 5; ++i) {
        draw();
    }
    EXPECT_EQ(questions, before);
}

TEST_F(WindowServer, IsAskedAgainOnceItHasToldOfAChange)
{
    draw();
    [window_ setTitle:@"Another"];
    rest();
    const int before = questions;
    draw();
    EXPECT_GT(questions, before);
}

TEST_F(WindowServer, GetsTheIconOfAWindowMadeWithoutItWhenItIsGiven)
{
    int before = icons;
    const auto newWindow = [] {
        NSWindow* const window = [[[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 50, 50)
                                                              styleMask:NSBorderlessWindowMask
                                                                backing:NSBackingStoreBuffered
                                                                  defer:NO] autorelease];
        [window setReleasedWhenClosed:NO];
        return window;
    };
    newWindow();
    EXPECT_EQ(icons, before + 1);
    before = icons;
    NSWindow* without = nil;
    {
        const dialog::WithoutIcons outer;
        {
            const dialog::WithoutIcons inner;
        }
        without = newWindow();
    }
    EXPECT_EQ(icons, before);
    dialog::giveIcon(static_cast<int>([without windowNumber]));
    EXPECT_EQ(icons, before + 1);
    dialog::giveIcon(0); // no window's number
    EXPECT_EQ(icons, before + 1);
    newWindow();
    EXPECT_EQ(icons, before + 2);
}

TEST_F(WindowServer, FindsWhatThePointerShowsOnceTheMouseIsUsedAgain)
{
    ASSERT_EQ(std::system("xdotool mousemove 5 5 key a"), 0);
    rest();
    const int before = view_->resets_;
    ASSERT_EQ(std::system("xdotool key a key a"), 0);
    rest();
    EXPECT_EQ(view_->resets_, before);
    const NSPoint corner = [window_ frame].origin;
    const int x = static_cast<int>(corner.x) + 100;
    const int y = static_cast<int>(NSHeight([[window_ screen] frame]) - corner.y) - 100;
    const std::string move = "xdotool mousemove " + std::to_string(x) + " " + std::to_string(y);
    ASSERT_EQ(std::system(move.c_str()), 0);
    EXPECT_TRUE(waitFor([&] { return view_->resets_ > before; }));
}

} // namespace

// In front of the window system's own, and counted.
extern "C" __attribute__((visibility("default"))) int
XGetWindowProperty(void* display, unsigned long window, unsigned long property, long offset,
                   long length, int remove, unsigned long type, unsigned long* typeFound,
                   int* format, unsigned long* count, unsigned long* left, unsigned char** data)
{
    static const auto real =
        reinterpret_cast<decltype(&XGetWindowProperty)>(dlsym(RTLD_NEXT, "XGetWindowProperty"));
    ++questions;
    return real(display, window, property, offset, length, remove, type, typeFound, format, count,
                left, data);
}

extern "C" __attribute__((visibility("default"))) int
XChangeProperty(void* display, unsigned long window, unsigned long property, unsigned long type,
                int format, int mode, const unsigned char* data, int count)
{
    static const auto real =
        reinterpret_cast<decltype(&XChangeProperty)>(dlsym(RTLD_NEXT, "XChangeProperty"));
    icons += count > 16 * 16 ? 1 : 0;
    return real(display, window, property, type, format, mode, data, count);
}

int main(int argc, char** argv, char** environment)
{
    testing::InitGoogleTest(&argc, argv);
    return runToolkitTests(argv, environment,
                           {.beforeApplication = &dialog::askWindowServerLess,
                            .withApplication = [] { [NSApp finishLaunching]; }});
}
