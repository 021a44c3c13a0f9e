#include "pagesettings/SummaryLines.hpp"

#include "pagesettings/DisplayText.hpp"

#include <span>

namespace pagesettings {

NumberText clampedLengthText(std::string_view number, const PanelRules& rules) noexcept
{
    const float minimum = limitInUnit(rules.limits.minLength, rules.unit);
    const float maximum = limitInUnit(rules.limits.maxLength, rules.unit);
    const float value = clamped(leadingFloat(number), minimum, maximum);
    return roundedUpTextInUnit(value, rules.unit, rules.wholeLengths);
}

static std::span<const char* const> valueKeys(SummaryLine line, bool isZR) noexcept
{
    static constexpr const char* kPrintModes[] = {"RS_VnResolS300300", "RS_VnResolQ300300",
                                                  "RS_VnResolQ300600"};
    static constexpr const char* kQualities[] = {"RS_QualitySpeed", "RS_QualityQuality"};
    static constexpr const char* kZRResolutions[] = {"RS_Resol300300", "RS_Resol300600"};
    static constexpr const char* kResolutions[] = {"RS_Resol180360", "RS_Resol360360",
                                                   "RS_Resol360720"};
    static constexpr const char* kCompressions[] = {"RS_CompressOFF", "RS_CompressON"};
    if (line == SummaryLine::PrintMode)
        return kPrintModes;
    if (line == SummaryLine::Quality)
        return kQualities;
    if (line == SummaryLine::Resolution && isZR)
        return kZRResolutions;
    if (line == SummaryLine::Resolution)
        return kResolutions;
    return kCompressions;
}

const char* summaryValueKey(SummaryLine line, std::ptrdiff_t index, bool isZR) noexcept
{
    const auto keys = valueKeys(line, isZR);
    return index >= 0 && static_cast<std::size_t>(index) < keys.size()
               ? keys[static_cast<std::size_t>(index)]
               : nullptr;
}

bool showsQualityLine(std::ptrdiff_t markedResolution) noexcept
{
    return markedResolution != 1;
}

} // namespace pagesettings
