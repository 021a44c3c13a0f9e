#include "plugin/SystemVersion.hpp"

namespace plugin {

bool isLeopardOrLater(const SystemVersion& version) noexcept
{
    if (version.major > 10)
        return true;
    return version.major == 10 && version.minor > 4;
}

} // namespace plugin
