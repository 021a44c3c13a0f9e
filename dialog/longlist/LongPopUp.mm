#include "dialog/longlist/LongPopUp.h"

#include "dialog/Text.h"
#include "dialog/longlist/ListMoves.hpp"
#include "dialog/theme/Drawing.h"
#include "dialog/theme/TapeTheme.h"
#include "dialog/toolkit/WindowServer.h"

#include <optional>
#include <utility>

namespace {

constexpr CGFloat kRowHeight = 22;
constexpr CGFloat kMostHeight = 14 * kRowHeight;
constexpr CGFloat kEdge = 1;
constexpr CGFloat kTextInset = 10;
constexpr CGFloat kFontSize = 12;
// Between two keys of one word.
constexpr NSTimeInterval kTypingPause = 1.0;

std::optional<dialog::ListKey> listKey(unichar key)
{
    switch (key) {
    case NSUpArrowFunctionKey:
        return dialog::ListKey::Up;
    case NSDownArrowFunctionKey:
        return dialog::ListKey::Down;
    case NSPageUpFunctionKey:
        return dialog::ListKey::PageUp;
    case NSPageDownFunctionKey:
        return dialog::ListKey::PageDown;
    case NSHomeFunctionKey:
        return dialog::ListKey::Home;
    case NSEndFunctionKey:
        return dialog::ListKey::End;
    default:
        return std::nullopt;
    }
}

CGFloat widthOnScreen(NSView* control)
{
    return [control convertSize:[control bounds].size toView:nil].width;
}

// Of a list so high under the control, or above it where there is no room.
NSPoint cornerUnder(NSView* control, CGFloat height)
{
    NSWindow* const host = [control window];
    const NSPoint corner =
        [host convertBaseToScreen:[control convertRect:[control bounds] toView:nil].origin];
    const NSRect screen = [[host screen] visibleFrame];
    return NSMakePoint(corner.x,
                       dialog::listBottom(corner.y, height, NSMinY(screen), NSMaxY(screen)));
}

enum class Ending
{
    StaysOpen,
    Chosen,
    Cancelled
};

} // namespace

@implementation LongListView

- (id)initWithTitles:(const std::vector<std::string>&)titles width:(CGFloat)width
{
    self = [super
        initWithFrame:NSMakeRect(0, 0, width, kRowHeight * static_cast<CGFloat>(titles.size()))];
    if (self != nil) {
        titles_ = &titles;
    }
    return self;
}

- (BOOL)isFlipped
{
    return YES;
}

- (BOOL)isOpaque
{
    return YES;
}

- (std::size_t)row
{
    return row_;
}

- (void)setRow:(std::size_t)row
{
    if (row == row_ || row >= titles_->size()) {
        return;
    }
    [self setNeedsDisplayInRect:[self frameOfRow:row_]];
    row_ = row;
    [self setNeedsDisplayInRect:[self frameOfRow:row_]];
    [self scrollRectToVisible:[self frameOfRow:row_]];
}

- (NSRect)frameOfRow:(std::size_t)row
{
    return NSMakeRect(0, kRowHeight * static_cast<CGFloat>(row), NSWidth([self bounds]),
                      kRowHeight);
}

- (NSString*)titleOfRow:(std::size_t)row
{
    return dialog::toNSString((*titles_)[row]);
}

- (dialog::Rows)rowsIn:(NSRect)rect
{
    return dialog::rowsWithin(NSMinY(rect), NSHeight(rect), kRowHeight, titles_->size());
}

- (std::size_t)firstRowInSight
{
    return [self rowsIn:[self visibleRect]].first;
}

- (std::size_t)endOfRowsInSight
{
    return [self rowsIn:[self visibleRect]].end;
}

- (void)drawRect:(NSRect)rect
{
    dialog::fillRect(rect, dialog::Role::Menu);
    NSFont* const font = [NSFont systemFontOfSize:kFontSize];
    const dialog::LineDrawer plain(font, dialog::Role::Text);
    const dialog::LineDrawer onAccent(font, dialog::Role::OnAccent);
    const dialog::Rows rows = [self rowsIn:rect];
    for (std::size_t row = rows.first; row < rows.end; ++row) {
        const NSRect frame = [self frameOfRow:row];
        const bool chosen = row == row_;
        if (chosen) {
            dialog::fillRect(frame, dialog::Role::Accent);
        }
        (chosen ? onAccent : plain).draw([self titleOfRow:row], NSInsetRect(frame, kTextInset, 0));
    }
}

@end

// The window of a list.  It stays when the list is closed, for the next time.
@interface OpenList : NSObject
{
    NSWindow* window_;
    LongListView* rows_;
    NSMutableString* typed_;
    NSDate* lastKey_;
    BOOL moved_; // whether the mouse was over a row since the list opened
    const std::vector<std::string>* titles_;
}

- (id)initWithTitles:(const std::vector<std::string>&)titles under:(NSView*)control;
- (CGFloat)width;
// One opening under the control, from the click until the user has chosen or given up; the row, or
// no value.
- (std::optional<std::size_t>)trackUnder:(NSView*)control from:(std::size_t)row;
@end

@implementation OpenList

- (id)initWithTitles:(const std::vector<std::string>&)titles under:(NSView*)control
{
    self = [super init];
    if (self == nil) {
        return nil;
    }
    titles_ = &titles;
    typed_ = [[NSMutableString alloc] init];
    const NSSize size = NSMakeSize(
        widthOnScreen(control),
        std::min(kMostHeight, kRowHeight * static_cast<CGFloat>(titles.size())) + 2 * kEdge);
    const NSPoint corner = cornerUnder(control, size.height);
    const NSRect frame = NSMakeRect(corner.x, corner.y, size.width, size.height);
    const dialog::WithoutIcons noIcon;
    window_ = [[NSWindow alloc] initWithContentRect:frame styleMask:NSBorderlessWindowMask
                                            backing:NSBackingStoreBuffered
                                              defer:NO];
    [window_ setReleasedWhenClosed:NO];
    [window_ setLevel:NSPopUpMenuWindowLevel];
    [window_ setBackgroundColor:dialog::themeColor(dialog::Role::Border)];
    [window_ setAcceptsMouseMovedEvents:YES];
    NSScrollView* const scroll = [[NSScrollView alloc]
        initWithFrame:NSInsetRect(NSMakeRect(0, 0, size.width, size.height), kEdge, kEdge)];
    [scroll setHasVerticalScroller:YES];
    [scroll setBorderType:NSNoBorder];
    [scroll setLineScroll:kRowHeight];
    rows_ = [[LongListView alloc] initWithTitles:titles width:[scroll contentSize].width];
    [scroll setDocumentView:rows_];
    [[window_ contentView] addSubview:scroll];
    [scroll release];
    return self;
}

- (CGFloat)width
{
    return NSWidth([window_ frame]);
}

- (void)placeUnder:(NSView*)control
{
    const NSPoint corner = cornerUnder(control, NSHeight([window_ frame]));
    if (!NSEqualPoints(corner, [window_ frame].origin)) {
        [window_ setFrameOrigin:corner];
    }
}

- (void)startFrom:(std::size_t)row
{
    moved_ = NO;
    [lastKey_ release];
    lastKey_ = nil;
    [rows_ setRow:row];
    // In the middle, so that what lies around the chosen one is seen.
    const NSRect chosen = [rows_ frameOfRow:row];
    const CGFloat height = NSHeight([rows_ visibleRect]);
    [rows_ scrollRectToVisible:NSInsetRect(chosen, 0, -(height - kRowHeight) / 2)];
}

- (void)dealloc
{
    [window_ orderOut:nil];
    [rows_ release];
    [window_ release];
    [typed_ release];
    [lastKey_ release];
    [super dealloc];
}

- (Ending)key:(NSEvent*)event
{
    NSString* const characters = [event characters];
    if ([characters length] == 0) {
        return Ending::StaysOpen;
    }
    const unichar key = [characters characterAtIndex:0];
    if (const auto move = listKey(key)) {
        const std::size_t page = [rows_ endOfRowsInSight] - [rows_ firstRowInSight];
        [rows_ setRow:dialog::moved([rows_ row], *move, page, titles_ -> size())];
        return Ending::StaysOpen;
    }
    const bool typing = lastKey_ != nil && -[lastKey_ timeIntervalSinceNow] < kTypingPause;
    switch (key) {
    case NSCarriageReturnCharacter:
    case NSEnterCharacter:
        return Ending::Chosen;
    case 0x1B:
    case NSTabCharacter:
        return Ending::Cancelled;
    case ' ':
        if (!typing) {
            return Ending::Chosen;
        }
        break;
    default:
        break;
    }
    if (key < ' ' || key >= 0xF700) {
        return Ending::StaysOpen;
    }
    if (!typing) {
        [typed_ setString:@""];
    }
    [typed_ appendString:characters];
    [lastKey_ release];
    lastKey_ = [[NSDate alloc] init];
    [rows_ setRow:dialog::rowForTyping(*titles_, dialog::toString(typed_), [rows_ row])];
    return Ending::StaysOpen;
}

- (Ending)mouse:(NSEvent*)event
{
    const NSPoint onScreen = [NSEvent mouseLocation];
    const NSPoint point = [rows_ convertPoint:[window_ convertScreenToBase:onScreen] fromView:nil];
    const NSEventType type = [event type];
    if (!NSPointInRect(point, [rows_ visibleRect])) {
        if (type == NSLeftMouseDown && !NSPointInRect(onScreen, [window_ frame])) {
            return Ending::Cancelled;
        }
        if ([event window] == window_) {
            [window_ sendEvent:event]; // the scroller
        }
        return Ending::StaysOpen;
    }
    const dialog::Rows under = dialog::rowsWithin(point.y, 0.01, kRowHeight, titles_->size());
    if (type != NSLeftMouseUp) {
        moved_ = YES;
        if (under.first < titles_->size()) {
            [rows_ setRow:under.first];
        }
        return Ending::StaysOpen;
    }
    return moved_ ? Ending::Chosen : Ending::StaysOpen;
}

- (Ending)handle:(NSEvent*)event
{
    switch ([event type]) {
    case NSKeyDown:
        return [self key:event];
    case NSLeftMouseDown:
    case NSLeftMouseDragged:
    case NSMouseMoved:
    case NSLeftMouseUp:
        return [self mouse:event];
    case NSScrollWheel:
        [[rows_ enclosingScrollView] scrollWheel:event];
        return Ending::StaysOpen;
    case NSKeyUp:
        return Ending::StaysOpen;
    default:
        [NSApp sendEvent:event];
        return Ending::StaysOpen;
    }
}

- (std::optional<std::size_t>)trackUnder:(NSView*)control from:(std::size_t)row
{
    [self placeUnder:control];
    [self startFrom:row];
    // Which draws it the first time.
    [window_ orderFront:nil];
    // What was drawn before is still there, and only has to come to the screen again.
    NSView* const whole = [window_ contentView];
    [whole lockFocus];
    [whole unlockFocus];
    [window_ disableFlushWindow];
    [window_ displayIfNeeded];
    [window_ enableFlushWindow];
    [window_ flushWindow];
    Ending ending = Ending::StaysOpen;
    while (ending == Ending::StaysOpen) {
        NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
        NSEvent* const event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                                  untilDate:[NSDate distantFuture]
                                                     inMode:NSEventTrackingRunLoopMode
                                                    dequeue:YES];
        ending = [self handle:event];
        [window_ displayIfNeeded];
        [pool drain];
    }
    [window_ orderOut:nil];
    return ending == Ending::Chosen ? std::optional([rows_ row]) : std::nullopt;
}

@end

@implementation LongPopUp

- (void)dealloc
{
    [list_ release];
    [super dealloc];
}

- (void)forgetList
{
    [list_ release];
    list_ = nil;
}

- (void)showLong:(std::vector<std::string>)titles
{
    [self forgetList];
    titles_ = std::move(titles);
    chosen_ = 0;
    [super removeAllItems];
    [super addItemWithTitle:@""];
    [self showChosen];
}

- (void)showShort
{
    [self forgetList];
    titles_.clear();
    [super removeAllItems];
}

- (void)showChosen
{
    // The menu behind the title is never shown, and need not be measured for it.
    NSMenuItem* const item = (NSMenuItem*)[super itemAtIndex:0];
    [item setMenu:nil];
    [item setTitle:dialog::toNSString(titles_[chosen_])];
    [item setMenu:[self menu]];
    [super selectItemAtIndex:0];
    [self synchronizeTitleAndSelectedItem];
    [self setNeedsDisplay:YES];
}

- (NSInteger)indexOfSelectedItem
{
    return titles_.empty() ? [super indexOfSelectedItem] : static_cast<NSInteger>(chosen_);
}

- (NSInteger)numberOfItems
{
    return titles_.empty() ? [super numberOfItems] : static_cast<NSInteger>(titles_.size());
}

- (NSString*)itemTitleAtIndex:(NSInteger)index
{
    if (titles_.empty()) {
        return [super itemTitleAtIndex:index];
    }
    const auto place = static_cast<std::size_t>(index);
    return index >= 0 && place < titles_.size() ? dialog::toNSString(titles_[place]) : nil;
}

- (void)selectItemAtIndex:(NSInteger)index
{
    const auto place = static_cast<std::size_t>(index);
    if (titles_.empty()) {
        [super selectItemAtIndex:index];
    } else if (index >= 0 && place < titles_.size()) {
        chosen_ = place;
        [self showChosen];
    }
}

- (void)openList
{
    [[self window] makeFirstResponder:self];
    if ([list_ width] != widthOnScreen(self)) {
        [self forgetList];
        list_ = [[OpenList alloc] initWithTitles:titles_ under:self];
    }
    const std::optional<std::size_t> row = [list_ trackUnder:self from:chosen_];
    if (row && *row != chosen_) {
        chosen_ = *row;
        [self showChosen];
        [self sendAction:[self action] to:[self target]];
        // Who acts may have ended what was being typed, and with it the focus.
        [[self window] makeFirstResponder:self];
    }
}

- (void)mouseDown:(NSEvent*)event
{
    if (titles_.empty()) {
        [super mouseDown:event];
    } else if ([self isEnabled]) {
        [self openList];
    }
}

- (void)performClick:(id)sender
{
    if (titles_.empty()) {
        [super performClick:sender];
    } else if ([self isEnabled]) {
        [self openList];
    }
}

- (void)keyDown:(NSEvent*)event
{
    NSString* const characters = [event characters];
    const unichar key = [characters length] == 0 ? 0 : [characters characterAtIndex:0];
    if (!titles_.empty() &&
        (key == ' ' || key == NSUpArrowFunctionKey || key == NSDownArrowFunctionKey)) {
        [self performClick:nil];
    } else {
        [super keyDown:event];
    }
}

@end
