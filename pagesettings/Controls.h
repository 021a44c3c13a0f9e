// Controls.h - between the panel's fields and the rules' values.
#pragma once

#include "pagesettings/NumberText.hpp"
#include "pagesettings/PanelRules.hpp"

#include <AppKit/AppKit.h>

namespace pagesettings {

// The number in a field, read by the toolkit; 0 without a field.
inline FieldValue valueOf(NSTextField* field)
{
    return {[field floatValue], [field doubleValue]};
}

// Autoreleased.
inline NSString* string(const NumberText& text)
{
    return [NSString stringWithUTF8String:text.c_str()];
}

} // namespace pagesettings
