// Fit.hpp - remembered values and a printer that may be another one.  Plain C++ and libcups.
#pragma once

#include "dialog/memory/KeptValues.hpp"
#include "dialog/ppd/PPDFile.hpp"

#include <string>
#include <utility>
#include <vector>

namespace dialog {

using Wanted = std::vector<std::pair<std::string, std::string>>; // keyword and choice

struct Fit
{
    std::string tape;                 // empty: the printer has no such tape
    Wanted options;                   // those that the printer has
    std::vector<std::string> leftOut; // the others, in words
};

// Lengths fit every printer that has an option for them; the panel brings them within the limits.
Fit fit(const KeptValues& values, const PPDFile& ppd);

// What of a job's options is worth remembering: those of the printer's PPD and the lengths, but not
// the tape, and no length of zero.
std::vector<JobOption> worthKeeping(const std::vector<JobOption>& options, const PPDFile& ppd);

// The lengths that became others on their way through the panel, in words.  Less than a quarter of
// a millimetre is the rounding to the panel's unit.
std::vector<std::string> changedLengths(const Wanted& wanted, const JobOptions& now,
                                        const PPDFile& ppd);

// `base` with the choices of `over`, but for those whose keyword `firm` has.
Wanted overlaid(const Wanted& base, const Wanted& over, const Wanted& firm);

// Those of `wanted` that the printer's PPD knows nothing of: they are for the print server.
Wanted unknownTo(const PPDFile& ppd, const Wanted& wanted);

} // namespace dialog
