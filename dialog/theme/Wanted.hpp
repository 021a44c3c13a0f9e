// Wanted.hpp - which look the user wants: light, dark, or what the desktop says.
//
// Plain C++.
#pragma once

#include "dialog/theme/Palette.hpp"

#include <cstdint>
#include <string_view>

namespace dialog {

enum class WantedAppearance : std::uint8_t
{
    Auto,
    Light,
    Dark,
};

// "auto", "light" or "dark".  False, and `wanted` untouched, for anything else.
bool parseAppearance(std::string_view word, WantedAppearance& wanted) noexcept;

// `themeName` is the value of GTK_THEME, `desktopSettings` the text of the desktop's settings.ini;
// both may be empty.  A theme named in the environment wins over the file; Auto without either is
// light.
Appearance appearance(WantedAppearance wanted, std::string_view themeName,
                      std::string_view desktopSettings) noexcept;

} // namespace dialog
