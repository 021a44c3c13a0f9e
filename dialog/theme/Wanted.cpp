#include "dialog/theme/Wanted.hpp"

#include <algorithm>
#include <cstddef>

namespace dialog {

namespace {

constexpr std::string_view kBlanks = " \t\r";

std::string_view trimmed(std::string_view text) noexcept
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

char lower(char character) noexcept
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
}

bool equalWords(std::string_view one, std::string_view other) noexcept
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return lower(a) == lower(b); });
}

bool endsWith(std::string_view text, std::string_view end) noexcept
{
    return text.size() >= end.size() && equalWords(text.substr(text.size() - end.size()), end);
}

// "Adwaita:dark", "Adwaita-dark"
bool isDarkTheme(std::string_view name) noexcept
{
    return endsWith(name, ":dark") || endsWith(name, "-dark");
}

bool saysDark(std::string_view key, std::string_view value) noexcept
{
    if (key == "gtk-application-prefer-dark-theme") {
        return value == "1" || equalWords(value, "true");
    }
    return key == "gtk-theme-name" && isDarkTheme(value);
}

bool settingsSayDark(std::string_view settings) noexcept
{
    while (!settings.empty()) {
        const std::size_t end = std::min(settings.find('\n'), settings.size());
        const std::string_view line = settings.substr(0, end);
        settings.remove_prefix(std::min(end + 1, settings.size()));
        const std::size_t equals = line.find('=');
        if (equals != std::string_view::npos &&
            saysDark(trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1)))) {
            return true;
        }
    }
    return false;
}

} // namespace

bool parseAppearance(std::string_view word, WantedAppearance& wanted) noexcept
{
    if (word == "auto") {
        wanted = WantedAppearance::Auto;
    } else if (word == "light") {
        wanted = WantedAppearance::Light;
    } else if (word == "dark") {
        wanted = WantedAppearance::Dark;
    } else {
        return false;
    }
    return true;
}

Appearance appearance(WantedAppearance wanted, std::string_view themeName,
                      std::string_view desktopSettings) noexcept
{
    if (wanted != WantedAppearance::Auto) {
        return wanted == WantedAppearance::Dark ? Appearance::Dark : Appearance::Light;
    }
    const bool dark = themeName.empty() ? settingsSayDark(desktopSettings) : isDarkTheme(themeName);
    return dark ? Appearance::Dark : Appearance::Light;
}

} // namespace dialog
