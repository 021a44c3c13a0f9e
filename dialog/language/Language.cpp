#include "dialog/language/Language.hpp"

namespace dialog {

namespace {

constexpr Language kLanguages[] = {
    {"en", "en", ""},
    {"de", "de", ""},
    {"fr", "fr", ""},
    {"es", "es", ""},
    {"it", "it", ""},
    {"pt", "pt", ""},
    {"nl", "nl", ""},
    {"ja", "ja", "ja"},
    {"ko", "ko", "ko"},
    {"zh-Hans", "zh_CN", "zh-cn"},
    {"zh-Hant", "zh_TW", "zh-tw"},
};

const Language* byCode(std::string_view code) noexcept
{
    for (const Language& language : kLanguages) {
        if (language.code == code) {
            return &language;
        }
    }
    return nullptr;
}

bool contains(std::string_view text, std::string_view part) noexcept
{
    return text.find(part) != std::string_view::npos;
}

bool asksForNone(std::string_view locale) noexcept
{
    const std::string_view name = locale.substr(0, locale.find_first_of(".@"));
    return name == "C" || name == "POSIX";
}

} // namespace

std::span<const Language> languages() noexcept
{
    return kLanguages;
}

const Language* languageOfLocale(std::string_view locale) noexcept
{
    const std::string_view name = locale.substr(0, locale.find_first_of(".@"));
    const std::string_view language = name.substr(0, name.find_first_of("_-"));
    if (language != "zh") {
        return byCode(language);
    }
    const std::string_view place = name.substr(language.size());
    const bool traditional = contains(place, "Hant") || contains(place, "TW") ||
                             contains(place, "HK") || contains(place, "MO");
    return byCode(traditional ? "zh-Hant" : "zh-Hans");
}

const Language& languageFor(const LocaleVariables& variables) noexcept
{
    std::string_view locale = variables.lang;
    if (!variables.lcAll.empty()) {
        locale = variables.lcAll;
    } else if (!variables.lcMessages.empty()) {
        locale = variables.lcMessages;
    }
    if (locale.empty() || asksForNone(locale)) {
        return kLanguages[0];
    }
    std::string_view list = variables.language;
    while (!list.empty()) {
        const std::string_view first = list.substr(0, list.find(':'));
        if (const Language* const found = languageOfLocale(first)) {
            return *found;
        }
        list.remove_prefix(first.size() == list.size() ? list.size() : first.size() + 1);
    }
    const Language* const found = languageOfLocale(locale);
    return found != nullptr ? *found : kLanguages[0];
}

} // namespace dialog
