// PPDText.h - the bytes of a PPD as strings.
#pragma once

#include <AppKit/AppKit.h>

#include <string_view>

namespace ppd {

// The encoding of keyword-like texts: attribute values and default choices.
NSStringEncoding systemEncoding() noexcept;

// A new string, owned by the caller; nil for no bytes or bytes that are not valid in the encoding.
NSString* newString(const char* bytes, NSStringEncoding encoding) noexcept;

// The same, autoreleased.
NSString* string(const char* bytes, NSStringEncoding encoding) noexcept;

// The keyword in one of libcups's fixed records, which a keyword of full length leaves without a
// terminator.
template <std::size_t size>
std::string_view keyword(const char (&record)[size]) noexcept
{
    const std::string_view whole(record, size);
    return whole.substr(0, whole.find('\0'));
}

} // namespace ppd
