#include "dialog/ControlList.h"

#include "dialog/Messages.hpp"
#include "dialog/Text.h"
#include "dialog/keyboard/SpokenNames.h"
#include "dialog/longlist/LongPopUp.h"

#include <cmath>
#include <string>

namespace dialog {

namespace {

struct Listing
{
    const ControlNames& names;
    NSMutableString* text;

    void line(std::string_view name, NSView* view, NSRect rect, bool enabled, bool on,
              NSString* value) const;
    void focus(NSView* view) const;
    void view(NSView* view) const;
    void matrix(NSMatrix* matrix) const;
    void menu(NSMenuView* menu) const;
    void longList(LongListView* list) const;
    std::string nameOf(NSView* view) const;
};

void Listing::line(std::string_view name, NSView* view, NSRect rect, bool enabled, bool on,
                   NSString* value) const
{
    NSWindow* const window = [view window];
    const NSRect inWindow = [view convertRect:rect toView:nil];
    const NSPoint corner = [window convertBaseToScreen:inWindow.origin];
    const CGFloat screen = NSMaxY([[[NSScreen screens] objectAtIndex:0] frame]);
    std::string result(name);
    for (const CGFloat number : {corner.x, screen - corner.y - inWindow.size.height,
                                 inWindow.size.width, inWindow.size.height}) {
        result += '\t';
        result += std::to_string(std::lround(number));
    }
    result += enabled ? "\tenabled" : "\tdisabled";
    result += on ? "\ton\t" : "\toff\t";
    if ([view isKindOfClass:[NSControl class]]) {
        result += shown(toString([(NSControl*)view accessibilityLabel]));
    }
    result += '\t';
    result += shown(toString(value));
    result += '\n';
    [text appendString:toNSString(result)];
}

void Listing::focus(NSView* view) const
{
    if (view != nil) {
        line("Focus", view, [view bounds], true, false, toNSString(nameOf(view)));
    }
}

std::string Listing::nameOf(NSView* view) const
{
    for (const auto& [control, name] : names) {
        if (control == view) {
            return std::string(name);
        }
    }
    for (NSView* around = [view superview]; around != nil; around = [around superview]) {
        if ([around respondsToSelector:@selector(nameOfControl:)]) {
            const std::string name = toString([(id<ControlNaming>)around nameOfControl:view]);
            if (!name.empty()) {
                return name;
            }
        }
    }
    return toString(NSStringFromClass([view class]));
}

void Listing::matrix(NSMatrix* matrix) const
{
    for (NSInteger row = 0; row < [matrix numberOfRows]; ++row) {
        for (NSInteger column = 0; column < [matrix numberOfColumns]; ++column) {
            NSCell* const cell = [matrix cellAtRow:row column:column];
            line("cell", matrix, [matrix cellFrameAtRow:row column:column], [cell isEnabled],
                 [matrix selectedRow] == row && [matrix selectedColumn] == column, [cell title]);
        }
    }
}

void Listing::menu(NSMenuView* menuView) const
{
    NSArray* const items = [[menuView menu] itemArray];
    for (NSUInteger i = 0; i < [items count]; ++i) {
        NSMenuItem* const item = [items objectAtIndex:i];
        const auto index = static_cast<NSInteger>(i);
        line("item", menuView, [menuView rectOfItemAtIndex:index], [item isEnabled],
             [menuView highlightedItemIndex] == index, [item title]);
    }
}

void Listing::longList(LongListView* list) const
{
    for (std::size_t row = [list firstRowInSight]; row < [list endOfRowsInSight]; ++row) {
        line("item", list, [list frameOfRow:row], true, [list row] == row, [list titleOfRow:row]);
    }
}

void Listing::view(NSView* view) const
{
    if ([view isHidden]) {
        return;
    }
    if ([view isKindOfClass:[NSMenuView class]]) {
        menu((NSMenuView*)view);
    } else if ([view isKindOfClass:[LongListView class]]) {
        longList((LongListView*)view);
    } else if ([view isKindOfClass:[NSMatrix class]]) {
        matrix((NSMatrix*)view);
    } else if ([view isKindOfClass:[NSControl class]]) {
        NSControl* const control = (NSControl*)view;
        const bool isPopUp = [control isKindOfClass:[NSPopUpButton class]];
        const bool isButton = !isPopUp && [control isKindOfClass:[NSButton class]];
        // Asking the control itself would end what is being typed.
        NSText* const editor = [control currentEditor];
        NSString* value = editor == nil ? [[control cell] stringValue] : [editor string];
        if (isPopUp) {
            value = [(NSPopUpButton*)control titleOfSelectedItem];
        } else if (isButton) {
            value = [(NSButton*)control title];
        } else if ([control isKindOfClass:[NSSlider class]]) {
            value = toNSString(std::to_string([control floatValue]));
        }
        line(nameOf(control), control, [control bounds], [control isEnabled],
             isButton && [(NSButton*)control state] == NSOnState, value);
    }
    if ([view isKindOfClass:[NSProgressIndicator class]]) {
        NSProgressIndicator* const bar = (NSProgressIndicator*)view;
        line(nameOf(bar), bar, [bar bounds], true, false,
             toNSString(std::to_string([bar doubleValue])));
    }
    for (NSView* part in [view subviews]) {
        this->view(part);
    }
}

} // namespace

NSString* visibleControls(NSView* focused, const ControlNames& names)
{
    NSMutableString* const text = [NSMutableString string];
    const Listing listing{names, text};
    listing.focus(focused);
    for (NSWindow* window in [NSApp windows]) {
        if ([window isVisible]) {
            listing.view([window contentView]);
        }
    }
    return text;
}

} // namespace dialog
