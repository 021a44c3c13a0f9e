// SystemVersion.hpp - the oldest operating-system release that the plug-in supports.  Plain C++.
#pragma once

#include <cstdint>

namespace plugin {

struct SystemVersion
{
    // What stands when the system cannot be asked: a release that is too old.
    std::int32_t major = 10;
    std::int32_t minor = 4;
    std::int32_t bugFix = 0;
};

// Whether the release is 10.5 or later.
bool isLeopardOrLater(const SystemVersion& version) noexcept;

} // namespace plugin
