// UTF8.hpp - texts of unknown encoding: words of the command line, names of files.  Plain C++.
#pragma once

#include <string>
#include <string_view>

namespace dialog {

// Well-formed: nothing cut off, overlong, beyond U+10FFFF or half of a pair.
bool isUTF8(std::string_view text) noexcept;

// `text` itself, or, when it is no UTF-8, each of its bytes taken for a letter of ISO 8859-1.
std::string asUTF8(std::string_view text);

} // namespace dialog
