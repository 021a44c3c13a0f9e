// Language.hpp - which of the eleven languages the user wants.  Plain C++.
#pragma once

#include <span>
#include <string_view>

namespace dialog {

struct Language
{
    std::string_view code;      // of the panel's texts, such as "de" and "zh-Hant"
    std::string_view catalogue; // of the dialog's texts, as gettext spells it: "de", "zh_TW"
    std::string_view font;      // as fontconfig spells it; empty when every Latin font will do
};

// English first.
std::span<const Language> languages() noexcept;

// What the environment says, each empty when it is not set.
struct LocaleVariables
{
    std::string_view language; // LANGUAGE, a list with colons
    std::string_view lcAll;
    std::string_view lcMessages;
    std::string_view lang;
};

// The first language of ours that is asked for, in the order of the C library: LC_ALL before
// LC_MESSAGES before LANG, and LANGUAGE before all of them unless they ask for no language at all
// ("C").  The locale itself need not be installed.  English when none is ours.
const Language& languageFor(const LocaleVariables& variables) noexcept;

// One locale name, such as "pt_BR.UTF-8@x"; nullptr when it is none of ours.
const Language* languageOfLocale(std::string_view locale) noexcept;

} // namespace dialog
