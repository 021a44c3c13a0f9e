#include "dialog/theme/TapeTheme.h"

#include "dialog/theme/Drawing.h"
#include "dialog/theme/Metrics.hpp"
#include "dialog/theme/QuickText.h"

#include <GNUstepGUI/GSTheme.h>
#include <objc/runtime.h>

#include <algorithm>
#include <cstddef>

namespace dialog {

namespace {

Appearance appearanceInUse = Appearance::Light;

// The toolkit knows its colours by name; each gets what it is used for.
struct NamedRole
{
    NSString* name;
    Role role;
};

const NamedRole kSystemColors[] = {
    {@"alternateRowBackgroundColor", Role::Window},
    {@"alternateSelectedControlColor", Role::Accent},
    {@"alternateSelectedControlTextColor", Role::OnAccent},
    {@"controlBackgroundColor", Role::Window},
    {@"controlColor", Role::Window},
    {@"controlDarkShadowColor", Role::Border},
    {@"controlHighlightColor", Role::Window},
    {@"controlLightHighlightColor", Role::Surface},
    {@"controlShadowColor", Role::BorderQuiet},
    {@"controlTextColor", Role::Text},
    {@"disabledControlTextColor", Role::TextDisabled},
    {@"gridColor", Role::BorderQuiet},
    {@"headerColor", Role::Window},
    {@"headerTextColor", Role::Text},
    {@"highlightColor", Role::Surface},
    {@"keyboardFocusIndicatorColor", Role::Focus},
    {@"knobColor", Role::Track},
    {@"labelColor", Role::Text},
    {@"quaternaryLabelColor", Role::TextDisabled},
    {@"rowBackgroundColor", Role::Surface},
    {@"scrollBarColor", Role::Window},
    {@"secondaryLabelColor", Role::TextDisabled},
    {@"secondarySelectedControlColor", Role::ButtonPressed},
    {@"selectedControlColor", Role::ButtonPressed},
    {@"selectedControlTextColor", Role::Text},
    {@"selectedKnobColor", Role::Border},
    {@"selectedMenuItemColor", Role::Accent},
    {@"selectedMenuItemTextColor", Role::OnAccent},
    {@"selectedTextBackgroundColor", Role::Selection},
    {@"selectedTextColor", Role::OnSelection},
    {@"shadowColor", Role::Border},
    {@"tertiaryLabelColor", Role::TextDisabled},
    {@"textBackgroundColor", Role::Surface},
    {@"textColor", Role::Text},
    {@"toolTipColor", Role::Menu},
    {@"toolTipTextColor", Role::Text},
    {@"windowBackgroundColor", Role::Window},
    {@"windowFrameColor", Role::Border},
    {@"windowFrameTextColor", Role::Text},
};

const NamedRole kThemeColors[] = {
    {@"browserHeaderTextColor", Role::Text},
    {@"highlightedTableRowBackgroundColor", Role::Accent},
    {@"highlightedTableRowTextColor", Role::OnAccent},
    {@"keyWindowFrameTextColor", Role::Text},
    {@"mainWindowFrameTextColor", Role::Text},
    {@"menuBackgroundColor", Role::Menu},
    {@"menuBarBackgroundColor", Role::Window},
    {@"menuBorderColor", Role::Border},
    {@"menuItemBackgroundColor", Role::Menu},
    {@"menuSeparatorColor", Role::BorderQuiet},
    {@"normalWindowFrameTextColor", Role::TextDisabled},
    {@"tableHeaderTextColor", Role::Text},
    {@"toolbarBackgroundColor", Role::Window},
    {@"toolbarBorderColor", Role::BorderQuiet},
    {@"windowBorderColor", Role::Border},
};

BOOL ownsKeyboard(NSCell* cell, NSView* view)
{
    if ([[view window] firstResponder] != view) {
        return NO;
    }
    // A slider's cell is not told.
    return [cell showsFirstResponder] || [view isKindOfClass:[NSSlider class]];
}

BOOL isDefaultButton(NSCell* cell)
{
    if (![cell isKindOfClass:[NSButtonCell class]]) {
        return NO;
    }
    NSString* const key = [(NSButtonCell*)cell keyEquivalent];
    return [cell isBordered] && ([key isEqualToString:@"\r"] || [key isEqualToString:@"\n"]);
}

// Whatever lies behind a control with round corners has to be there again each time it is drawn.
void clearBehind(NSRect frame, NSView* view)
{
    NSColor* const background = [[view window] backgroundColor];
    [(background != nil ? background : themeColor(Role::Window)) set];
    NSRectFill(frame);
}

void drawButtonBody(NSRect frame, NSView* view, Role fill, Role line, BOOL focused)
{
    const NSRect body = onPixels(frame, view);
    clearBehind(frame, view);
    if (!focused) {
        fillBordered(body, kCornerRadius, thinLine(view), fill, line);
        return;
    }
    const CGFloat scale = pixelsPerPoint(view);
    const CGFloat ring = wholePixels(kFocusWidth, scale);
    fillBordered(body, kCornerRadius, ring, line == Role::Border ? fill : Role::Window,
                 Role::Focus);
    if (line != Role::Border) {
        // On a button of its own colour the ring needs a gap to be seen.
        const CGFloat inset = ring + wholePixels(kFocusGap, scale);
        fillRounded(NSInsetRect(body, inset, inset), kCornerRadius - inset, fill);
    }
}

enum class Mark : std::uint8_t
{
    None,
    Radio,
    CheckBox,
};

// The toolkit tells a radio button and a check box from others by their picture alone.
Mark markOf(NSImage* image)
{
    NSString* const name = [image name];
    if (name == nil) {
        return Mark::None;
    }
    if ([name rangeOfString:@"Radio"].location != NSNotFound) {
        return Mark::Radio;
    }
    return [name rangeOfString:@"Switch"].location != NSNotFound ? Mark::CheckBox : Mark::None;
}

void drawRadio(NSPoint center, NSView* view, BOOL on, BOOL enabled)
{
    const CGFloat line = thinLine(view);
    if (on && enabled) {
        fillCircle(center, kRadioDiameter, Role::Accent);
        fillCircle(center, kRadioDot, Role::OnAccent);
        return;
    }
    fillCircle(center, kRadioDiameter, enabled ? Role::Border : Role::BorderQuiet);
    fillCircle(center, kRadioDiameter - 2 * line, enabled ? Role::Surface : Role::Window);
    if (on) {
        fillCircle(center, kRadioDot, Role::TextDisabled);
    }
}

void drawCheckBox(NSPoint center, NSView* view, NSInteger state, BOOL enabled)
{
    const NSRect box =
        onPixels(NSMakeRect(center.x - kCheckBoxSide / 2, center.y - kCheckBoxSide / 2,
                            kCheckBoxSide, kCheckBoxSide),
                 view);
    const BOOL filled = state != NSOffState && enabled;
    const Role line = filled ? Role::Accent : enabled ? Role::Border : Role::BorderQuiet;
    const Role fill = filled ? Role::Accent : enabled ? Role::Surface : Role::Window;
    fillBordered(box, 3, thinLine(view), fill, line);
    const Role mark = enabled ? Role::OnAccent : Role::TextDisabled;
    const NSPoint middle = NSMakePoint(NSMidX(box), NSMidY(box));
    if (state == NSMixedState) {
        fillRounded(onPixels(NSMakeRect(middle.x - 4, middle.y - 1, 8, 2), view), 1, mark);
    } else if (state != NSOffState) {
        drawCheckMark(middle, 10, [view isFlipped], mark);
    }
}

struct SliderParts
{
    NSRect track;
    NSPoint knob;
    BOOL vertical;
};

SliderParts sliderParts(NSSliderCell* cell, NSView* view)
{
    const BOOL flipped = [view isFlipped];
    const NSRect room = [cell trackRect];
    const NSRect knob = [cell knobRectFlipped:flipped];
    const CGFloat thick = wholePixels(kSliderTrack, pixelsPerPoint(view));
    SliderParts parts;
    parts.vertical = NSHeight(room) > NSWidth(room);
    // The toolkit's knob decides where a click takes hold; ours stands in its middle.
    parts.knob = NSMakePoint(NSMidX(knob), NSMidY(knob));
    if (parts.vertical) {
        parts.knob.x = NSMidX(room);
        parts.track = NSMakeRect(parts.knob.x - thick / 2, NSMinY(room), thick, NSHeight(room));
    } else {
        parts.knob.y = NSMidY(room);
        parts.track = NSMakeRect(NSMinX(room), parts.knob.y - thick / 2, NSWidth(room), thick);
    }
    parts.track = onPixels(parts.track, view);
    return parts;
}

// From the low end to the knob.
NSRect filledTrack(const SliderParts& parts, BOOL flipped)
{
    NSRect filled = parts.track;
    if (!parts.vertical) {
        filled.size.width = parts.knob.x - NSMinX(filled);
    } else if (flipped) {
        filled.size.height = NSMaxY(filled) - parts.knob.y;
        filled.origin.y = parts.knob.y;
    } else {
        filled.size.height = parts.knob.y - NSMinY(filled);
    }
    return filled;
}

void drawPopUp(NSPopUpButtonCell* cell, NSRect frame, NSView* view)
{
    const BOOL enabled = [cell isEnabled];
    const BOOL flipped = [view isFlipped];
    const Role text = enabled ? Role::Text : Role::TextDisabled;
    if ([cell isBordered]) {
        drawButtonBody(frame, view, [cell isHighlighted] ? Role::ButtonPressed : Role::Button,
                       enabled ? Role::Border : Role::BorderQuiet, ownsKeyboard(cell, view));
    }
    const NSPoint chevron = NSMakePoint(NSMaxX(frame) - kPopUpChevronRoom / 2, NSMidY(frame));
    if ([cell pullsDown]) {
        drawChevron(chevron, 8, Direction::Down, flipped, text);
    } else {
        const CGFloat up = flipped ? -4 : 4;
        drawChevron(NSMakePoint(chevron.x, chevron.y + up), 7, Direction::Up, flipped, text);
        drawChevron(NSMakePoint(chevron.x, chevron.y - up), 7, Direction::Down, flipped, text);
    }
    drawLine([cell title],
             NSMakeRect(NSMinX(frame) + kPopUpTextIndent, NSMinY(frame),
                        NSWidth(frame) - kPopUpTextIndent - kPopUpChevronRoom, NSHeight(frame)),
             [cell font], text);
}

void drawMenuItem(NSMenuItem* item, NSRect frame, NSMenuView* view, BOOL highlighted, BOOL bar)
{
    if ([item isSeparatorItem]) {
        const CGFloat line = thinLine(view);
        fillRect(onPixels(NSMakeRect(NSMinX(frame) + kMenuInset, floor(NSMidY(frame)),
                                     NSWidth(frame) - 2 * kMenuInset, line),
                          view),
                 Role::BorderQuiet);
        return;
    }
    const BOOL enabled = [item isEnabled];
    const BOOL flipped = [view isFlipped];
    const BOOL filled = highlighted && enabled;
    if (filled) {
        fillRounded(onPixels(NSInsetRect(frame, kMenuInset, 1), view), kFieldRadius, Role::Accent);
    }
    const Role text = filled ? Role::OnAccent : enabled ? Role::Text : Role::TextDisabled;
    NSFont* const font = [view font];
    if (bar) {
        drawLine([item title], NSInsetRect(frame, kMenuInset + 2, 0), font, text);
        return;
    }
    if ([item state] != NSOffState) {
        drawCheckMark(NSMakePoint(NSMinX(frame) + kMenuTextIndent / 2 + 1, NSMidY(frame)), 10,
                      flipped, text);
    }
    CGFloat right = NSMaxX(frame) - kMenuInset - 4;
    if ([item hasSubmenu]) {
        drawChevron(NSMakePoint(right - 4, NSMidY(frame)), 8, Direction::Right, flipped, text);
        right -= 12;
    }
    drawLine([item title],
             NSMakeRect(NSMinX(frame) + kMenuTextIndent, NSMinY(frame),
                        right - NSMinX(frame) - kMenuTextIndent, NSHeight(frame)),
             font, text);
}

// What the toolkit draws without asking its theme is drawn here, in place of a method of the class.
// (The theme's own way of replacing methods cuts the class's name wrongly in version 0.29.)

using DrawImage = void (*)(id, SEL, NSImage*, NSRect, NSView*);
DrawImage drawImageOfToolkit = nullptr;

NSColor* buttonTextColor(id self, SEL)
{
    NSButtonCell* const cell = (NSButtonCell*)self;
    if (![cell isEnabled]) {
        return themeColor(Role::TextDisabled);
    }
    return themeColor(isDefaultButton(cell) ? Role::OnAccent : Role::Text);
}

void drawButtonImage(id self, SEL selector, NSImage* image, NSRect frame, NSView* view)
{
    NSButtonCell* const cell = (NSButtonCell*)self;
    const Mark mark = markOf(image);
    if (mark == Mark::None) {
        drawImageOfToolkit(self, selector, image, frame, view);
        return;
    }
    // Pressed, the toolkit hands over the picture that a release will leave.
    const BOOL on = image == [cell alternateImage];
    const NSRect room = onPixels(frame, view);
    // A little to the left: the toolkit's own picture leaves room before the title.
    const NSPoint center = NSMakePoint(NSMidX(room) - 1, NSMidY(room));
    if (mark == Mark::Radio) {
        drawRadio(center, view, on, [cell isEnabled]);
    } else {
        const NSInteger state = [cell state] == NSMixedState ? NSMixedState : on;
        drawCheckBox(center, view, state, [cell isEnabled]);
    }
}

void drawPopUpButton(id self, SEL, NSRect frame, NSView* view)
{
    if (!NSIsEmptyRect(frame)) {
        drawPopUp((NSPopUpButtonCell*)self, frame, view);
    }
}

// The toolkit draws all that lies behind a control that lets it through, and all between two of
// them.  With a border it is drawn on the window's colour, and nothing shines through.
BOOL isPopUpOpaque(id self, SEL)
{
    return [(NSPopUpButtonCell*)self isBordered];
}

// What the keyboard acts on: a field itself, not the editor that all fields of a window share.
NSView* focusedView(NSWindow* window)
{
    NSResponder* const responder = [window firstResponder];
    if ([responder isKindOfClass:[NSText class]] && [(NSText*)responder isFieldEditor]) {
        id const field = [(NSText*)responder delegate];
        return [field isKindOfClass:[NSView class]] ? field : nil;
    }
    return [responder isKindOfClass:[NSView class]] ? (NSView*)responder : nil;
}

using MakeFirstResponder = BOOL (*)(id, SEL, NSResponder*);
MakeFirstResponder makeFirstResponderOfToolkit = nullptr;

// Not every control of the toolkit draws itself again when the focus comes or goes.
BOOL makeFirstResponder(id self, SEL selector, NSResponder* responder)
{
    NSView* const left = [focusedView(self) retain];
    const BOOL made = makeFirstResponderOfToolkit(self, selector, responder);
    NSView* const entered = focusedView(self);
    if (left != entered) {
        [left setNeedsDisplay:YES];
        [entered setNeedsDisplay:YES];
    }
    [left release];
    return made;
}

using EndEditing = void (*)(id, SEL, NSText*);
EndEditing endEditingOfToolkit = nullptr;

// The toolkit draws only the text again, and a ring would stay.
void endEditing(id self, SEL selector, NSText* editor)
{
    endEditingOfToolkit(self, selector, editor);
    [[(NSTextFieldCell*)self controlView] setNeedsDisplay:YES];
}

template <typename Function>
Function replaceMethod(Class cls, SEL selector, Function function)
{
    const Method method = class_getInstanceMethod(cls, selector);
    const IMP before = method_getImplementation(method);
    // class_replaceMethod of this runtime would change an inherited method for all who inherit it.
    if (!class_addMethod(cls, selector, reinterpret_cast<IMP>(function),
                         method_getTypeEncoding(method))) {
        method_setImplementation(method, reinterpret_cast<IMP>(function));
    }
    return reinterpret_cast<Function>(before);
}

void replaceDrawingMethods()
{
    if (drawImageOfToolkit != nullptr) {
        return;
    }
    drawImageOfToolkit = replaceMethod([NSButtonCell class], @selector(drawImage:withFrame:inView:),
                                       &drawButtonImage);
    endEditingOfToolkit =
        replaceMethod([NSTextFieldCell class], @selector(endEditing:), &endEditing);
    makeFirstResponderOfToolkit =
        replaceMethod([NSWindow class], @selector(makeFirstResponder:), &makeFirstResponder);
    replaceMethod([NSButtonCell class], @selector(textColor), &buttonTextColor);
    replaceMethod([NSPopUpButtonCell class], @selector(drawWithFrame:inView:), &drawPopUpButton);
    replaceMethod([NSPopUpButtonCell class], @selector(isOpaque), &isPopUpOpaque);
}

} // namespace

Color themeValue(Role role)
{
    return color(role, appearanceInUse);
}

NSColor* themeColor(Role role)
{
    const Color value = themeValue(role);
    return [NSColor colorWithCalibratedRed:value.red / 255.0 green:value.green / 255.0
                                      blue:value.blue / 255.0
                                     alpha:1];
}

} // namespace dialog

using dialog::Role;

@interface TapeTheme : GSTheme
{
    NSColorList* systemColors_;
}
@end

@implementation TapeTheme

- (void)dealloc
{
    [systemColors_ release];
    [super dealloc];
}

// The name of the toolkit's own look, so that it never looks for a theme of another name on disk
// when the user's settings change.
- (NSString*)name
{
    return @"GNUstep";
}

- (NSColorList*)colors
{
    if (systemColors_ == nil) {
        systemColors_ = [[NSColorList alloc] initWithName:@"System"];
        for (const dialog::NamedRole& entry : dialog::kSystemColors) {
            [systemColors_ setColor:dialog::themeColor(entry.role) forKey:entry.name];
        }
    }
    return systemColors_;
}

- (NSColor*)colorNamed:(NSString*)name state:(GSThemeControlState)state
{
    for (const dialog::NamedRole& entry : dialog::kThemeColors) {
        if ([entry.name isEqualToString:name]) {
            return dialog::themeColor(entry.role);
        }
    }
    return nil;
}

// Buttons ------------------------------------------------------------------------------------

// The accent says which button Return presses; the toolkit would add a picture of the key.
- (void)setKeyEquivalent:(NSString*)key forButtonCell:(NSButtonCell*)cell
{
}

- (void)drawButton:(NSRect)frame
                in:(NSCell*)cell
              view:(NSView*)view
             style:(int)style
             state:(GSThemeControlState)state
{
    // Alert panels put the picture of the key on their button themselves.
    if ([cell isKindOfClass:[NSButtonCell class]] &&
        [[[cell image] name] hasPrefix:@"common_ret"]) {
        [(NSButtonCell*)cell setImagePosition:NSNoImage];
    }
    const BOOL enabled = [cell isEnabled];
    const BOOL staysPressed = [cell isKindOfClass:[NSButtonCell class]] &&
                              [(NSButtonCell*)cell showsStateBy] != NSNoCellMask;
    const BOOL pressed = [cell isHighlighted] || (staysPressed && [cell state] == NSOnState);
    const BOOL filled = enabled && dialog::isDefaultButton(cell);
    Role fill = pressed ? Role::ButtonPressed : Role::Button;
    Role line = Role::Border;
    if (filled) {
        fill = line = pressed ? Role::AccentPressed : Role::Accent;
    } else if (!enabled) {
        fill = Role::Window;
        line = Role::BorderQuiet;
    }
    dialog::drawButtonBody(frame, view, fill, line, dialog::ownsKeyboard(cell, view));
}

// Controls with a border show the focus there.
- (void)drawFocusFrame:(NSRect)frame view:(NSView*)view
{
    if ([view isKindOfClass:[NSSlider class]] || [view isKindOfClass:[NSTextField class]] ||
        ([view isKindOfClass:[NSButton class]] && [(NSButton*)view isBordered])) {
        return;
    }
    const CGFloat width = dialog::wholePixels(dialog::kFocusWidth, dialog::pixelsPerPoint(view));
    dialog::strokeInside(dialog::onPixels(frame, view), dialog::kFieldRadius, width, Role::Focus);
}

// Fields and frames --------------------------------------------------------------------------

- (void)drawBorderType:(NSBorderType)type frame:(NSRect)frame view:(NSView*)view
{
    if (type == NSNoBorder) {
        return;
    }
    const NSRect rect = dialog::onPixels(frame, view);
    if (type != NSBezelBorder || ![view isKindOfClass:[NSTextField class]]) {
        dialog::strokeInside(rect, 0, dialog::thinLine(view), Role::BorderQuiet);
        return;
    }
    NSTextField* const field = (NSTextField*)view;
    const BOOL focused =
        [field currentEditor] != nil || [[field window] firstResponder] == (NSResponder*)field;
    dialog::clearBehind(frame, view);
    if (![field isEnabled]) {
        dialog::fillBordered(rect, dialog::kFieldRadius, dialog::thinLine(view), Role::Window,
                             Role::BorderQuiet);
    } else if (focused) {
        dialog::fillBordered(rect, dialog::kFieldRadius,
                             dialog::wholePixels(dialog::kFocusWidth, dialog::pixelsPerPoint(view)),
                             Role::Surface, Role::Focus);
    } else {
        dialog::fillBordered(rect, dialog::kFieldRadius, dialog::thinLine(view), Role::Surface,
                             Role::Border);
    }
}

- (void)drawBoxInClipRect:(NSRect)clip
                  boxType:(NSBoxType)type
               borderType:(NSBorderType)border
                   inView:(NSBox*)box
{
    if (type == NSBoxCustom) {
        [super drawBoxInClipRect:clip boxType:type borderType:border inView:box];
        return;
    }
    const CGFloat line = dialog::thinLine(box);
    const NSRect frame = [box borderRect];
    if (type == NSBoxSeparator) {
        const BOOL upright = NSHeight(frame) > NSWidth(frame);
        const NSRect stroke = upright
                                  ? NSMakeRect(NSMidX(frame), NSMinY(frame), line, NSHeight(frame))
                                  : NSMakeRect(NSMinX(frame), NSMidY(frame), NSWidth(frame), line);
        dialog::fillRect(dialog::onPixels(stroke, box), Role::BorderQuiet);
        return;
    }
    dialog::clearBehind(clip, box);
    if (border != NSNoBorder) {
        dialog::strokeInside(dialog::onPixels(frame, box), dialog::kGroupRadius, line,
                             Role::BorderQuiet);
    }
    if ([box titlePosition] != NSNoTitle) {
        if (border != NSNoBorder) {
            dialog::clearBehind([box titleRect], box);
        }
        [[box titleCell] drawWithFrame:[box titleRect] inView:box];
    }
}

- (NSRect)drawGroove:(NSRect)border withClip:(NSRect)clip
{
    NSView* const view = [NSView focusView];
    const CGFloat line = dialog::thinLine(view);
    dialog::strokeInside(dialog::onPixels(border, view), 0, line, Role::BorderQuiet);
    return NSInsetRect(border, 2, 2);
}

- (NSRect)drawGrayBezel:(NSRect)border withClip:(NSRect)clip
{
    return [self drawGroove:border withClip:clip];
}

- (NSRect)drawWhiteBezel:(NSRect)border withClip:(NSRect)clip
{
    return [self drawGroove:border withClip:clip];
}

- (NSRect)drawDarkBezel:(NSRect)border withClip:(NSRect)clip
{
    return [self drawGroove:border withClip:clip];
}

- (NSRect)drawLightBezel:(NSRect)border withClip:(NSRect)clip
{
    return [self drawGroove:border withClip:clip];
}

- (NSRect)drawButton:(NSRect)border withClip:(NSRect)clip
{
    return [self drawGroove:border withClip:clip];
}

- (NSRect)drawDarkButton:(NSRect)border withClip:(NSRect)clip
{
    return [self drawGroove:border withClip:clip];
}

// Sliders ------------------------------------------------------------------------------------

- (void)drawSliderBorderAndBackground:(NSBorderType)type
                                frame:(NSRect)frame
                               inCell:(NSCell*)cell
                         isHorizontal:(BOOL)horizontal
{
}

- (void)drawBarInside:(NSRect)rect inCell:(NSCell*)cell flipped:(BOOL)flipped
{
    NSView* const view = [cell controlView];
    const dialog::SliderParts parts = dialog::sliderParts((NSSliderCell*)cell, view);
    const CGFloat radius = dialog::kSliderTrack / 2;
    dialog::fillRounded(parts.track, radius, Role::Track);
    dialog::fillRounded(dialog::filledTrack(parts, flipped), radius,
                        [cell isEnabled] ? Role::Accent : Role::TextDisabled);
}

- (void)drawKnobInCell:(NSCell*)cell
{
    NSView* const view = [cell controlView];
    const dialog::SliderParts parts = dialog::sliderParts((NSSliderCell*)cell, view);
    const BOOL enabled = [cell isEnabled];
    const CGFloat line = dialog::wholePixels(1.5, dialog::pixelsPerPoint(view));
    const CGFloat gap = 2 * dialog::kFocusGap;
    if (dialog::ownsKeyboard(cell, view)) {
        dialog::fillCircle(parts.knob, dialog::kSliderKnob + gap + 2 * dialog::kFocusWidth,
                           Role::Focus);
    }
    dialog::fillCircle(parts.knob, dialog::kSliderKnob + gap, Role::Window);
    dialog::fillCircle(parts.knob, dialog::kSliderKnob,
                       enabled ? Role::Accent : Role::TextDisabled);
    if (!dialog::ownsKeyboard(cell, view)) {
        dialog::fillCircle(parts.knob, dialog::kSliderKnob - 2 * line, Role::Button);
    }
}

// Steppers -----------------------------------------------------------------------------------

- (NSRect)stepperUpButtonRectWithFrame:(NSRect)frame
{
    const CGFloat half = floor(NSHeight(frame) / 2);
    return NSMakeRect(NSMinX(frame), NSMinY(frame) + half, NSWidth(frame), NSHeight(frame) - half);
}

- (NSRect)stepperDownButtonRectWithFrame:(NSRect)frame
{
    return NSMakeRect(NSMinX(frame), NSMinY(frame), NSWidth(frame), floor(NSHeight(frame) / 2));
}

- (void)drawStepperCell:(NSCell*)cell
              withFrame:(NSRect)frame
                 inView:(NSView*)view
            highlightUp:(BOOL)up
          highlightDown:(BOOL)down
{
    const BOOL enabled = [cell isEnabled];
    const CGFloat line = dialog::thinLine(view);
    const Role mark = enabled ? Role::Text : Role::TextDisabled;
    const Role edge = enabled ? Role::Border : Role::BorderQuiet;
    const NSRect upper = [self stepperUpButtonRectWithFrame:frame];
    const NSRect lower = [self stepperDownButtonRectWithFrame:frame];
    dialog::drawButtonBody(frame, view, enabled ? Role::Button : Role::Window, edge,
                           dialog::ownsKeyboard(cell, view));
    if (up || down) {
        dialog::fillRounded(dialog::onPixels(NSInsetRect(up ? upper : lower, line, line), view),
                            dialog::kCornerRadius - line, Role::ButtonPressed);
    }
    const BOOL flipped = [view isFlipped];
    const dialog::Direction first = flipped ? dialog::Direction::Down : dialog::Direction::Up;
    const dialog::Direction second = flipped ? dialog::Direction::Up : dialog::Direction::Down;
    dialog::drawChevron(NSMakePoint(NSMidX(upper), NSMidY(upper)), 6, first, flipped, mark);
    dialog::drawChevron(NSMakePoint(NSMidX(lower), NSMidY(lower)), 6, second, flipped, mark);
}

// Menus and the lists of pop-ups -------------------------------------------------------------

- (void)drawMenuRect:(NSRect)rect
              inView:(NSView*)view
        isHorizontal:(BOOL)horizontal
           itemCells:(NSArray*)cells
{
    NSMenuView* const menuView = (NSMenuView*)view;
    const NSRect bounds = [view bounds];
    dialog::fillRect(bounds, horizontal ? Role::Window : Role::Menu);
    if (!horizontal) {
        dialog::strokeInside(dialog::onPixels(bounds, view), 0, dialog::thinLine(view),
                             Role::Border);
    }
    NSMenu* const menu = [menuView menu];
    const NSInteger highlighted = [menuView highlightedItemIndex];
    const NSInteger count = static_cast<NSInteger>([cells count]);
    for (NSInteger index = 0; index < count; ++index) {
        const NSRect frame = [menuView rectOfItemAtIndex:index];
        if (NSIntersectsRect(rect, frame)) {
            dialog::drawMenuItem([menu itemAtIndex:index], frame, menuView, index == highlighted,
                                 horizontal);
        }
    }
}

- (CGFloat)menuItemHeight
{
    return 24;
}

// The toolkit makes a pop-up's list as high as its number of rows asks for.
- (CGFloat)menuSeparatorHeight
{
    return [self menuItemHeight];
}

// Scrollers, tables, progress ----------------------------------------------------------------

- (float)defaultScrollerWidth
{
    return static_cast<float>(dialog::kScrollerWidth);
}

- (void)drawScrollerRect:(NSRect)rect
                  inView:(NSView*)view
                 hitPart:(NSScrollerPart)hitPart
            isHorizontal:(BOOL)horizontal
{
    NSScroller* const scroller = (NSScroller*)view;
    const BOOL flipped = [view isFlipped];
    dialog::fillRect([view bounds], Role::Window);
    NSRect knob = [scroller rectForPart:NSScrollerKnob];
    const NSRect less = [scroller rectForPart:NSScrollerDecrementLine];
    const NSRect more = [scroller rectForPart:NSScrollerIncrementLine];
    if (!NSIsEmptyRect(knob)) {
        const CGFloat across =
            (horizontal ? NSHeight(knob) : NSWidth(knob)) - dialog::kScrollerKnob;
        knob = NSInsetRect(knob, horizontal ? 1 : across / 2, horizontal ? across / 2 : 1);
        const BOOL held = hitPart == NSScrollerKnob;
        dialog::fillRounded(dialog::onPixels(knob, view), dialog::kScrollerKnob / 2,
                            held ? Role::TextDisabled : Role::Border);
    }
    if (!NSIsEmptyRect(less)) {
        dialog::drawChevron(NSMakePoint(NSMidX(less), NSMidY(less)), 6,
                            horizontal ? dialog::Direction::Left : dialog::Direction::Up, flipped,
                            Role::TextDisabled);
    }
    if (!NSIsEmptyRect(more)) {
        dialog::drawChevron(NSMakePoint(NSMidX(more), NSMidY(more)), 6,
                            horizontal ? dialog::Direction::Right : dialog::Direction::Down,
                            flipped, Role::TextDisabled);
    }
}

- (void)drawScrollViewRect:(NSRect)rect inView:(NSView*)view
{
    if ([(NSScrollView*)view borderType] != NSNoBorder) {
        dialog::strokeInside(dialog::onPixels([view bounds], view), 0, dialog::thinLine(view),
                             Role::Border);
    }
}

- (void)drawTableHeaderCell:(NSTableHeaderCell*)cell
                  withFrame:(NSRect)frame
                     inView:(NSView*)view
                      state:(GSThemeControlState)state
{
    const CGFloat line = dialog::thinLine(view);
    const CGFloat bottom = [view isFlipped] ? NSMaxY(frame) - line : NSMinY(frame);
    dialog::fillRect(frame, state == GSThemeHighlightedState ? Role::ButtonPressed : Role::Window);
    dialog::fillRect(
        dialog::onPixels(NSMakeRect(NSMinX(frame), bottom, NSWidth(frame), line), view),
        Role::BorderQuiet);
    dialog::fillRect(
        dialog::onPixels(
            NSMakeRect(NSMaxX(frame) - line, NSMinY(frame) + 4, line, NSHeight(frame) - 8), view),
        Role::BorderQuiet);
}

- (void)drawTableCornerView:(NSView*)view withClip:(NSRect)clip
{
    dialog::fillRect(clip, Role::Window);
}

- (void)drawProgressIndicator:(NSProgressIndicator*)progress
                   withBounds:(NSRect)bounds
                     withClip:(NSRect)clip
                      atCount:(int)count
                     forValue:(double)value
{
    const CGFloat thick = std::min<CGFloat>(6, NSHeight(bounds));
    const NSRect track = dialog::onPixels(
        NSMakeRect(NSMinX(bounds), NSMidY(bounds) - thick / 2, NSWidth(bounds), thick), progress);
    NSRect done = track;
    if ([progress isIndeterminate]) {
        done.size.width = NSWidth(track) / 4;
        done.origin.x += (NSWidth(track) - NSWidth(done)) * (count % 10) / 9;
    } else {
        done.size.width = NSWidth(track) * dialog::knobShare(value, 0, 1);
    }
    dialog::fillRounded(track, thick / 2, Role::Track);
    dialog::fillRounded(done, thick / 2, Role::Accent);
}

@end

namespace dialog {

namespace {

// The toolkit puts back the look that the user's settings name whenever these change.  This
// program has its own, so for this process they name the one that the theme answers to.
void keepThemeThroughSettings(NSUserDefaults* defaults)
{
    NSDictionary* const arguments = [defaults volatileDomainForName:NSArgumentDomain];
    NSMutableDictionary* const changed =
        arguments != nil ? [[arguments mutableCopy] autorelease] : [NSMutableDictionary dictionary];
    [changed setObject:@"GNUstep" forKey:@"GSTheme"];
    [defaults removeVolatileDomainForName:NSArgumentDomain];
    [defaults setVolatileDomain:changed forName:NSArgumentDomain];
}

} // namespace

void useTheme(Appearance appearance)
{
    NSUserDefaults* const defaults = [NSUserDefaults standardUserDefaults];
    keepThemeThroughSettings(defaults);
    // Scrollers on the right.
    [defaults registerDefaults:@{@"NSScrollViewInterfaceStyle" : @"NSWindows95InterfaceStyle"}];
    appearanceInUse = appearance;
    replaceDrawingMethods();
    setTextQuickly();
    [NSColor controlTextColor]; // NSColor has to be there to hear that a theme came
    TapeTheme* const theme = [[TapeTheme alloc] initWithBundle:nil];
    [GSTheme setTheme:theme];
    [theme release];
    // That its lists of colours have changed every window would hear after it has drawn itself in
    // them, and draw itself again.
    [[NSNotificationQueue defaultQueue]
        dequeueNotificationsMatching:[NSNotification
                                         notificationWithName:NSColorListDidChangeNotification
                                                       object:nil]
                        coalesceMask:NSNotificationCoalescingOnName];
}

} // namespace dialog
