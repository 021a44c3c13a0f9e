// FontFamily.hpp - a font for a language that the system font may not have the letters of.
//
// The toolkit takes every letter from one font and shows a question mark for what it lacks.
#pragma once

#include <string>
#include <string_view>

namespace dialog {

// The family that fontconfig would take for a text in this language (its own name for it, such as
// "zh-tw"); empty when no font has its letters.
std::string familyForLanguage(std::string_view language);

} // namespace dialog
