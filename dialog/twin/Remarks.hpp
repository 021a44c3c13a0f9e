// Remarks.hpp - what is said of a length or margin that is not the one asked for.  Plain C++.
#pragma once

#include "dialog/twin/PanelSettings.hpp"

#include <string>

namespace dialog {

// The length was changed from 500 mm to 200.0 mm, the longest this printer takes.
std::string sentenceFor(const Adjustment& adjustment);

} // namespace dialog
