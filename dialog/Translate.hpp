// Translate.hpp - the dialog's words in the user's language.
//
// The English text is the key: tr("Printer:").  A text with places is a pattern,
// filled(tr("The tape {1} is not there."), {name}), so that a translation may order them as it
// likes. Plain C++; the catalogues are gettext's.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace dialog {

// The text in the language that openCatalogues found; `english` itself where there is none.  UTF-8,
// valid for good.  `english` is a literal: scripts collect the calls.
const char* tr(const char* english) noexcept;

// `pattern` with {1} to {9} replaced by the parts as they are.  A place without a part stays.
std::string filled(std::string_view pattern, std::initializer_list<std::string_view> parts);

// Once, before any other thread: where the catalogues are (<folder>/<name>/LC_MESSAGES), and the
// name of the one to read.  The locale need not be installed; numbers, dates and sorting of the
// process stay as they are.
void openCatalogue(const std::string& folder, std::string_view name);

} // namespace dialog
