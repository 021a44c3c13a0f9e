// JobConflict.hpp - whether the choices of a job may go to the printer together.
//
//     if (const Failure failure = jobConflict(ppd)) ...
//
// For the window and for jobs without one.  Plain C++.
#pragma once

#include "dialog/Messages.hpp"
#include "dialog/job/WantedOptions.hpp"
#include "dialog/ppd/PPDFile.hpp"

namespace dialog {

// Of the choices marked in the PPD.  A conflict that no choice of a user could end (between what
// the printer is equipped with) does not hold a job back.
Failure jobConflict(const PPDFile& ppd);

// The same for a job without a window, whose choices were `wanted` in this order: the sentence goes
// on with what else could be asked for.
Failure jobConflict(const PPDFile& ppd, const WantedOptions& wanted);

} // namespace dialog
