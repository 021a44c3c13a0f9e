#include "textentry/KeyboardWindow.hpp"

#include <cstdlib>

@implementation FieldDelegate
- (void)controlTextDidChange:(NSNotification*)notification
{
    heard.push_back("change");
}
- (void)controlTextDidEndEditing:(NSNotification*)notification
{
    heard.push_back("end " + std::to_string([[NSApp currentEvent] type]));
}
@end

@interface PostObserver : NSObject
{
  @public
    std::vector<id> objects;
}
- (void)note:(NSNotification*)notification;
@end

@implementation PostObserver
- (void)note:(NSNotification*)notification
{
    EXPECT_EQ([notification userInfo], nil);
    objects.push_back([notification object]);
}
@end

namespace {

PDETextField13_v100_* newField(double y)
{
    PDETextField13_v100_* field =
        [[classNamed("PDETextField13_v100_") alloc] initWithFrame:NSMakeRect(20, y, 120, 24)];
    EXPECT_NE(field, nil);
    return field;
}

// One window for all tests: a window manager takes its time to hand the keys to the next one.
NSWindow* sharedWindow()
{
    static NSWindow* window = nil;
    if (window != nil)
        return window;
    window = [[NSWindow alloc] initWithContentRect:NSMakeRect(200, 300, 300, 160)
                                         styleMask:NSTitledWindowMask
                                           backing:NSBackingStoreBuffered
                                             defer:NO];
    [window setReleasedWhenClosed:NO];
    [window setTitle:@"Keyboard window"];
    [NSApp finishLaunching]; // until then the application knows no key window
    [NSApp activateIgnoringOtherApps:YES];
    [window makeKeyAndOrderFront:nil];
    return window;
}

void run(const std::string& command)
{
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
}

} // namespace

void handleEvents(double quietSeconds)
{
    for (;;) {
        const ScopedPool pool;
        NSEvent* event =
            [NSApp nextEventMatchingMask:NSAnyEventMask
                               untilDate:[NSDate dateWithTimeIntervalSinceNow:quietSeconds]
                                  inMode:NSDefaultRunLoopMode
                                 dequeue:YES];
        if (event == nil)
            return;
        [NSApp sendEvent:event];
    }
}

KeyboardWindow::KeyboardWindow()
{
    window_ = sharedWindow();
    length_ = newField(110);
    margin_ = newField(70);
    slider_ = [[NSSlider alloc] initWithFrame:NSMakeRect(20, 20, 120, 24)];
    delegate_ = [[FieldDelegate alloc] init];
    for (NSView* view in @[ length_, margin_, slider_ ])
        [[window_ contentView] addSubview:view];
    [length_ setDelegate:(id)delegate_];
    [margin_ setDelegate:(id)delegate_];
    [length_ setNextKeyView:margin_];
    [margin_ setNextKeyView:slider_];
    [slider_ setNextKeyView:length_];

    const char* const hasFocus =
        "test \"$(xdotool getwindowfocus getwindowname)\" = 'Keyboard window'";
    for (int i = 0; i < 100 && std::system(hasFocus) != 0; ++i)
        handleEvents(0.1);
    EXPECT_EQ(std::system(hasFocus), 0) << "the window manager gives the window no keys";
    EXPECT_TRUE([window_ isKeyWindow] && [NSApp isActive]);
    [window_ makeFirstResponder:nil];
    delegate_->heard.clear();
}

KeyboardWindow::~KeyboardWindow()
{
    [length_ setDelegate:nil];
    [margin_ setDelegate:nil];
    [window_ makeFirstResponder:nil];
    for (NSView* view in @[ length_, margin_, slider_ ])
        [view removeFromSuperview];
    handleEvents();
    [length_ release];
    [margin_ release];
    [slider_ release];
    [delegate_ release];
}

void KeyboardWindow::focus(NSView* view)
{
    // A field that is being edited does not accept the focus again.
    EXPECT_TRUE([window_ makeFirstResponder:nil]);
    EXPECT_TRUE([window_ makeFirstResponder:view]);
    handleEvents();
}

void KeyboardWindow::press(const std::string& keys)
{
    run("xdotool key --clearmodifiers --delay 20 " + keys);
    handleEvents(0.3);
}

void KeyboardWindow::click(NSView* view)
{
    const NSRect inWindow = [view convertRect:[view bounds] toView:nil];
    const NSPoint place =
        [window_ convertBaseToScreen:NSMakePoint(NSMidX(inWindow), NSMidY(inWindow))];
    const double height = NSHeight([[NSScreen mainScreen] frame]);
    // In the background: the toolkit handles a press until it sees the release.
    run("xdotool mousemove " + std::to_string(static_cast<int>(place.x)) + " " +
        std::to_string(static_cast<int>(height - place.y)) +
        " sleep 0.1 mousedown 1 sleep 0.2 mouseup 1 &");
    handleEvents(0.8);
}

std::string KeyboardWindow::shown(NSTextField* field)
{
    NSText* editor = [field currentEditor];
    return textOf(editor != nil ? [editor string] : [field stringValue]);
}

PostCounter::PostCounter()
{
    observer_ = [[PostObserver alloc] init];
    [[NSNotificationCenter defaultCenter] addObserver:observer_ selector:@selector(note:)
                                                 name:@"TextFieldResignFirstResponderNotification"
                                               object:nil];
}

PostCounter::~PostCounter()
{
    [[NSNotificationCenter defaultCenter] removeObserver:observer_];
    [observer_ release];
}

std::vector<id> PostCounter::taken()
{
    std::vector<id> result;
    result.swap(static_cast<PostObserver*>(observer_)->objects);
    return result;
}
