// ChoiceRules.hpp - the option groups of the panel, and what one choice says of another.  Plain
// C++.
#pragma once

#include <cstddef>
#include <cstdint>

namespace pagesettings {

// An option group, as the panel passes it on to be refreshed or read back.  The first two name no
// group: they only run what every refresh runs.
enum ItemMask : std::int32_t
{
    kCommonItem1 = 1,
    kCommonItem2 = 2,
    kQualityItem = 4,
    kResolutionItem = 8,
    kCompressItem = 16,
    kPrintModeItem = 0x20000,
};

// The order in which the panel refreshes and reads back its groups.
inline constexpr ItemMask kAllItems[] = {kCommonItem1,    kCommonItem2,  kQualityItem,
                                         kResolutionItem, kCompressItem, kPrintModeItem};

// What the resolution row says of the quality group: the finer, second resolution has one quality
// only.
enum class QualityGroup
{
    Unchanged,
    Enabled,
    Disabled
};
QualityGroup qualityGroupFor(std::ptrdiff_t resolutionRow, bool isEnabled) noexcept;

// The quality choice is saved as chosen while the first resolution is chosen, else the first one.
std::ptrdiff_t qualityRowToSave(std::ptrdiff_t qualityRow, std::ptrdiff_t resolutionRow) noexcept;

// Only a printer on USB can be sent uncompressed data fast enough to ask; without a resolution
// there is nothing to compress.
bool isCompressEnabled(bool isUSB, bool hasResolution) noexcept;

} // namespace pagesettings
