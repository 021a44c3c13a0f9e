// SummaryLines.hpp - the numbers and fallback keys of the summary's lines.  Plain C++.
#pragma once

#include "pagesettings/PanelRules.hpp"
#include "tape/TapeState.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pagesettings {

// The length as the summary shows it: `number` is the field's text, or the paper's before there is
// a field.  On continuous tape it is held to the limits and rounded up; a label's stays as it is,
// and then the number itself is what is shown.
NumberText clampedLengthText(std::string_view number, const PanelRules& rules) noexcept;

enum class SummaryLine
{
    PrintMode,
    Quality,
    Resolution,
    Compress
};

// The strings-table key of the text that stands for choice `index` when the PPD gives it none, or
// nullptr where the summary knows no such choice.  `isZR` picks the printer line, whose resolutions
// differ.
const char* summaryValueKey(SummaryLine line, std::ptrdiff_t index, bool isZR) noexcept;

// The finer, second resolution has one quality only: no line then.
bool showsQualityLine(std::ptrdiff_t markedResolution) noexcept;

} // namespace pagesettings
