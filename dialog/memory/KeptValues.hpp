// KeptValues.hpp - what is remembered of a label: its tape and the options chosen for it.
//
// The number of copies is not among them: how many labels are wanted is asked anew each time.
#pragma once

#include "dialog/job/JobOptions.hpp"

#include <string>
#include <vector>

namespace dialog {

struct KeptValues
{
    std::string tape; // the PPD's name for it; may be empty
    std::vector<JobOption> options;

    bool operator==(const KeptValues&) const = default;
};

struct Preset
{
    std::string name; // UTF-8
    KeptValues values;

    bool operator==(const Preset&) const = default;
};

} // namespace dialog
