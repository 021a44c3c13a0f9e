#include <CoreServices/CoreServices.h>

#include "platform/SystemVersion.hpp"

#include <cstdlib>

namespace {

// The newest release whose interface the toolkit's headers name.
constexpr printing::SystemVersion kFollowedRelease{10, 14, 0};

std::optional<printing::SystemVersion> currentRelease() noexcept
{
    const char* wanted = std::getenv("PAGE_SETTINGS_SYSTEM_VERSION");
    if (wanted == nullptr || *wanted == '\0')
        return kFollowedRelease;
    return printing::parseSystemVersion(wanted);
}

} // namespace

OSErr Gestalt(OSType selector, SInt32* response)
{
    if (response == nullptr)
        return paramErr;
    if (selector != gestaltSystemVersionMajor && selector != gestaltSystemVersionMinor &&
        selector != gestaltSystemVersionBugFix)
        return gestaltUndefSelectorErr;
    const auto release = currentRelease();
    if (!release)
        return gestaltUnknownErr;
    switch (selector) {
    case gestaltSystemVersionMajor:
        *response = release->major;
        break;
    case gestaltSystemVersionMinor:
        *response = release->minor;
        break;
    default:
        *response = release->bugFix;
        break;
    }
    return noErr;
}
