// LabelPrinter.hpp - PPDs of any size, for measuring how things grow.
#pragma once

#include "support/PPDText.hpp"

#include <string>

namespace bench {

// A label printer on USB with every option that the panel shows: `sizes` (at least 1) page sizes,
// and `choices` (at least 2) each of quality, resolution, compression and print mode.  The default
// of each is the last one, so that who walks a list walks all of it.
PPDText labelPrinter(int sizes, int choices);

// The keyword of page size or choice `index`, from 0.
std::string sizeKeyword(int index);
std::string choiceKeyword(const std::string& option, int index);

// A page size whose height is a length of 24 mm plus the index in tenths, in points.
double sizeHeightPoints(int index);

} // namespace bench
