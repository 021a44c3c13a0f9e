// PrinterDot.hpp - the size of one printed dot, from the keyword of a resolution.  Plain C++.
#pragma once

#include "pagesettings/PanelRules.hpp"

#include <string_view>

namespace pagesettings {

// The least step that the panel can show, in millimetres: a hundredth of an inch, a whole
// millimetre where margins are whole numbers, else a tenth.  Stands for a dot that nothing tells.
double leastStepMillimetres(const PanelRules& rules) noexcept;

// The height of a dot, at least the least step, in millimetres.  The vertical resolution is the
// number behind the "x" of a keyword such as 300x600dpi; any other form has none, and its dot is
// infinite.
double dotMillimetres(std::string_view resolutionKeyword, const PanelRules& rules) noexcept;

} // namespace pagesettings
