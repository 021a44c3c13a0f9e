#include "pagesettings/ChoiceRules.hpp"

namespace pagesettings {

QualityGroup qualityGroupFor(std::ptrdiff_t resolutionRow, bool isEnabled) noexcept
{
    if (resolutionRow == 1 && isEnabled)
        return QualityGroup::Disabled;
    if (resolutionRow == 0 && !isEnabled)
        return QualityGroup::Enabled;
    return QualityGroup::Unchanged;
}

std::ptrdiff_t qualityRowToSave(std::ptrdiff_t qualityRow, std::ptrdiff_t resolutionRow) noexcept
{
    return resolutionRow == 0 ? qualityRow : 0;
}

bool isCompressEnabled(bool isUSB, bool hasResolution) noexcept
{
    return isUSB && hasResolution;
}

} // namespace pagesettings
