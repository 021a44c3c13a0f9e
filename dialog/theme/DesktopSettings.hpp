// DesktopSettings.hpp - what the desktop says about light and dark: one environment variable, one
// small file.
#pragma once

#include "dialog/theme/Wanted.hpp"

namespace dialog {

// Reads the environment and the user's settings.ini where `wanted` is Auto.
Appearance appearanceOnThisDesktop(WantedAppearance wanted);

} // namespace dialog
