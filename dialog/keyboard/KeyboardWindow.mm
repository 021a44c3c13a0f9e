#include "dialog/keyboard/KeyboardWindow.h"

#include "dialog/Text.h"
#include "dialog/keyboard/ReadingOrder.hpp"

namespace {

constexpr NSUInteger kAltMask = NSCommandKeyMask | NSAlternateKeyMask;

void collectStops(NSView* view, std::vector<NSView*>& stops)
{
    if ([view isHidden]) {
        return;
    }
    if ([view isKindOfClass:[NSControl class]] && ![view isKindOfClass:[NSScroller class]]) {
        if ([view canBecomeKeyView]) {
            stops.push_back(view);
        }
        return;
    }
    for (NSView* part in [view subviews]) {
        collectStops(part, stops);
    }
}

// The controls in a part that a key can come to, as they are read.
std::vector<NSView*> stopsIn(NSView* part)
{
    std::vector<NSView*> stops;
    collectStops(part, stops);
    std::vector<dialog::Frame> frames;
    for (NSView* stop : stops) {
        const NSRect rect = [stop convertRect:[stop bounds] toView:nil];
        frames.push_back({NSMinX(rect), NSMinY(rect), NSWidth(rect), NSHeight(rect)});
    }
    std::vector<NSView*> ordered;
    for (const std::size_t index : dialog::readingOrder(frames)) {
        ordered.push_back(stops[index]);
    }
    return ordered;
}

void underline(NSTextField* field, std::size_t place)
{
    NSMutableParagraphStyle* const style =
        [[[NSParagraphStyle defaultParagraphStyle] mutableCopy] autorelease];
    [style setAlignment:[field alignment]];
    NSDictionary* const attributes = @{
        NSFontAttributeName : [field font],
        NSForegroundColorAttributeName : [field textColor],
        NSParagraphStyleAttributeName : style
    };
    NSMutableAttributedString* const text =
        [[[NSMutableAttributedString alloc] initWithString:[field stringValue]
                                                attributes:attributes] autorelease];
    [text addAttribute:NSUnderlineStyleAttributeName
                 value:[NSNumber numberWithInt:NSSingleUnderlineStyle]
                 range:NSMakeRange(place, 1)];
    [field setAttributedStringValue:text];
}

char32_t characterOf(NSEvent* event)
{
    NSString* const characters = [event charactersIgnoringModifiers];
    return [characters length] == 1 ? [characters characterAtIndex:0] : 0;
}

} // namespace

@interface KeyboardWindow (Moving)
- (void)link;
- (BOOL)goToLetter:(char32_t)letter;
- (BOOL)turnPage:(NSInteger)step;
@end

@implementation KeyboardWindow

- (void)setParts:(id<KeyboardParts>)parts
{
    parts_ = parts;
}

- (void)letCaptions:(NSArray*)captions leadTo:(NSArray*)controls
{
    std::vector<std::string> texts;
    for (NSTextField* caption in captions) {
        texts.push_back(dialog::toString([caption stringValue]));
    }
    const std::vector<dialog::AccessKey> keys = dialog::accessKeys(texts);
    access_.clear();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        if (keys[i].letter != 0) {
            underline([captions objectAtIndex:i], keys[i].place);
            access_.push_back({keys[i].letter, [controls objectAtIndex:i]});
        }
    }
}

- (NSView*)focusedView
{
    NSResponder* const responder = [self firstResponder];
    if ([responder isKindOfClass:[NSText class]] && [(NSText*)responder isFieldEditor]) {
        id const field = [(NSText*)responder delegate];
        return [field isKindOfClass:[NSView class]] ? field : nil;
    }
    return [responder isKindOfClass:[NSView class]] ? (NSView*)responder : nil;
}

- (void)endTyping
{
    if ([[self firstResponder] isKindOfClass:[NSText class]]) {
        [self makeFirstResponder:nil];
    }
}

// Each time anew: what is shown and what can be edited changes, and a panel brings a loop of its
// own.
- (void)link
{
    std::vector<NSView*> stops;
    for (NSView* part : [parts_ keyboardParts]) {
        const std::vector<NSView*> more = stopsIn(part);
        stops.insert(stops.end(), more.begin(), more.end());
    }
    for (std::size_t i = 0; i < stops.size(); ++i) {
        [stops[i] setNextKeyView:stops[(i + 1) % stops.size()]];
    }
    if (!stops.empty()) {
        [self setInitialFirstResponder:stops.front()];
    }
}

- (void)selectNextKeyView:(id)sender
{
    [self link];
    [super selectNextKeyView:sender];
}

- (void)selectPreviousKeyView:(id)sender
{
    [self link];
    [super selectPreviousKeyView:sender];
}

- (void)selectKeyViewFollowingView:(NSView*)view
{
    [self link];
    [super selectKeyViewFollowingView:view];
}

- (void)selectKeyViewPrecedingView:(NSView*)view
{
    [self link];
    [super selectKeyViewPrecedingView:view];
}

- (BOOL)makeFirstResponder:(NSResponder*)responder
{
    const BOOL made = [super makeFirstResponder:responder];
    NSView* const view = [self focusedView];
    if (made && view != nil) {
        [view scrollRectToVisible:[view bounds]];
    }
    return made;
}

// The toolkit gives each control to the screen by itself as soon as it is drawn.
- (void)displayIfNeeded
{
    [self disableFlushWindow];
    [super displayIfNeeded];
    [self enableFlushWindow];
    [self flushWindowIfNeeded];
}

- (BOOL)performKeyEquivalent:(NSEvent*)event
{
    const NSUInteger modifiers = [event modifierFlags];
    const char32_t character = characterOf(event);
    if ((modifiers & kAltMask) != 0 && (modifiers & NSControlKeyMask) == 0 &&
        [self goToLetter:dialog::accessLetter(character)]) {
        return YES;
    }
    if ((modifiers & NSControlKeyMask) != 0 &&
        ((character == NSPageDownFunctionKey && [self turnPage:1]) ||
         (character == NSPageUpFunctionKey && [self turnPage:-1]))) {
        return YES;
    }
    return [super performKeyEquivalent:event];
}

- (BOOL)goToLetter:(char32_t)letter
{
    for (const Access& access : access_) {
        if (access.letter == letter && [access.control isEnabled]) {
            [self makeFirstResponder:access.control];
            return YES;
        }
    }
    return NO;
}

- (BOOL)turnPage:(NSInteger)step
{
    NSPopUpButton* const pages = [parts_ pages];
    const NSInteger page = [pages indexOfSelectedItem] + step;
    if (![pages isEnabled] || page < 0 || page >= [pages numberOfItems]) {
        return NO;
    }
    [self makeFirstResponder:pages];
    [pages selectItemAtIndex:page];
    return [pages sendAction:[pages action] to:[pages target]];
}

@end
