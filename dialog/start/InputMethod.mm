#include "dialog/start/InputMethod.h"

#include <AppKit/AppKit.h>

#include <objc/runtime.h>

// Loads the part of the toolkit that speaks to the window server; a second call does nothing.
extern "C" BOOL initialize_gnustep_backend(void);

// Of that part.
@interface NSObject (InputServerOfTheDisplay)
- (BOOL)filterEvent:(const void*)event;
- (void)ximFocusICWindow:(void*)window;
+ (void*)_windowWithTag:(NSInteger)number;
@end

namespace {

constexpr int kKeyPress = 2; // the first number of such an event of the window system

using Open = BOOL (*)(id, SEL, void*);
using Process = void (*)(id, SEL, const int*);

Open openOfToolkit = nullptr;
Process processOfToolkit = nullptr;
// What waits: the input server, not owned, and the display that it was to open.
id waiting = nil;
SEL openSelector = nullptr;
void* displayToOpen = nullptr;

BOOL openLater(id server, SEL selector, void* display)
{
    waiting = server;
    openSelector = selector;
    displayToOpen = display;
    return YES;
}

void processOpened(id display, SEL selector, const int* event)
{
    if (id const server = waiting; server != nil && *event == kKeyPress) {
        dialog::openInputMethod();
        // What it makes of the key it would have been asked before.
        if ([server filterEvent:event]) {
            return;
        }
    }
    processOfToolkit(display, selector, event);
}

} // namespace

namespace dialog {

void deferInputMethod()
{
    initialize_gnustep_backend();
    const Class server = NSClassFromString(@"XIMInputServer");
    const Class display = NSClassFromString(@"XGServer");
    const Method open = class_getInstanceMethod(server, @selector(ximInit:));
    const Method process = class_getInstanceMethod(display, @selector(processEvent:));
    if (open == nullptr || process == nullptr || openOfToolkit != nullptr ||
        ![server instancesRespondToSelector:@selector(filterEvent:)] ||
        ![server instancesRespondToSelector:@selector(ximFocusICWindow:)] ||
        ![display respondsToSelector:@selector(_windowWithTag:)]) {
        return;
    }
    openOfToolkit =
        reinterpret_cast<Open>(method_setImplementation(open, reinterpret_cast<IMP>(&openLater)));
    processOfToolkit = reinterpret_cast<Process>(
        method_setImplementation(process, reinterpret_cast<IMP>(&processOpened)));
}

void openInputMethod()
{
    id const server = waiting;
    waiting = nil;
    if (server == nil || !openOfToolkit(server, openSelector, displayToOpen)) {
        return;
    }
    // The window that has had the keyboard since, as if it got it now.
    if (NSWindow* const window = [NSApp keyWindow]) {
        [server
            ximFocusICWindow:[NSClassFromString(@"XGServer") _windowWithTag:[window windowNumber]]];
    }
}

} // namespace dialog
