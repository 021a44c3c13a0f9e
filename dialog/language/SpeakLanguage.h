// SpeakLanguage.h - the toolkit, and with it the panel, in the dialog's language.
#pragma once

#include "dialog/language/Language.hpp"

namespace dialog {

// Before any bundle is loaded: the languages in which the toolkit looks for texts.
void speak(const Language& language);

// After the application object is made and before any font is used: a font that has the language's
// letters, unless the user chose fonts.
void useFontFor(const Language& language);

} // namespace dialog
