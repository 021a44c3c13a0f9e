// Text.h - texts between the toolkit and plain C++.
#pragma once

#include <Foundation/Foundation.h>

#include <string>
#include <string_view>

namespace dialog {

// Never nil: bytes that are not UTF-8 are read as Latin-1.  Autoreleased.
NSString* toNSString(std::string_view text);

// tr() for the toolkit.  Autoreleased.
NSString* localized(const char* english);

// UTF-8; empty for nil and for a text that cannot be written in UTF-8.
std::string toString(NSString* text);

} // namespace dialog
