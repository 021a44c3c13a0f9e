#include "dialog/start/Fonts.hpp"

#include "dialog/background/Errand.hpp"

#include <fontconfig/fontconfig.h>

namespace dialog {

void beginReadingFonts()
{
    runAside([] { FcInit(); });
}

} // namespace dialog
