// WantedOptions.hpp - choices asked for on the command line, before there is a panel.  Plain C++.
#pragma once

#include "dialog/job/JobOptions.hpp"
#include "dialog/ppd/PPDFile.hpp"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dialog {

// Keyword and choice, in the order given.
using WantedOptions = std::vector<std::pair<std::string, std::string>>;

// The choices that the PPD lists are marked and set; options that it does not know are set as they
// are.  The label's length is the panel's own affair.
void applyWanted(const WantedOptions& wanted, PPDFile& ppd, JobOptions& options);

// The first wanted choice that the PPD's option has not; nothing for lengths and margins, which it
// need not list.  The answer points into `wanted`.
const std::pair<std::string, std::string>* unknownChoice(const WantedOptions& wanted,
                                                         const PPDFile& ppd);

// The tape to start with, among those that can be chosen: `paper` where there is one of that name,
// else the marked one, else the first.  Empty when there is none.
std::string startingPaper(const PPDFile& ppd, std::string_view paper);

} // namespace dialog
