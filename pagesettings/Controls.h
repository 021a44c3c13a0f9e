// Controls.h - between the panel's fields and the rules' values.
#pragma once

#include "pagesettings/NumberText.hpp"
#include "pagesettings/PanelRules.hpp"

#include <AppKit/AppKit.h>

namespace pagesettings {

// The number that a text begins with; 0 for none.  Not read by the toolkit: there are some that
// stop after eighteen digits, or make of 0e400 no number at all, which no limit would hold.
inline FieldValue valueOfText(NSString* text)
{
    const char* const bytes = [text UTF8String];
    const double value = leadingDouble(bytes ? bytes : "");
    return {narrowed(value), value};
}

// The number in a field; 0 without a field.
inline FieldValue valueOf(NSTextField* field)
{
    return valueOfText([field stringValue]);
}

// Autoreleased.
inline NSString* string(const NumberText& text)
{
    return [NSString stringWithUTF8String:text.c_str()];
}

// What a control is or shows already is not set again: it would be drawn again, with all that it
// overlaps.

inline void setEnabled(NSControl* control, BOOL enabled)
{
    if ([control isEnabled] != enabled)
        [control setEnabled:enabled];
}

inline void showLabel(NSTextField* label, NSString* text)
{
    if (![[label stringValue] isEqualToString:text])
        [label setStringValue:text];
}

inline void showValue(NSSlider* slider, float value)
{
    if ([slider doubleValue] != static_cast<double>(value))
        [slider setFloatValue:value];
}

} // namespace pagesettings
