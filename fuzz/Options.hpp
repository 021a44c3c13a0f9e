// Options.hpp - the options of a PPD, listed before anything is asked of it.
#pragma once

#include <cups/ppd.h>

#include <vector>

namespace fuzz {

// Every question for an option moves the print library's own place in its list, so that a walk by
// ppdNextOption() that asks on the way may never end.
inline std::vector<ppd_option_t*> optionsOf(ppd_file_t* record)
{
    std::vector<ppd_option_t*> options;
    for (ppd_option_t* option = ppdFirstOption(record); option != nullptr;
         option = ppdNextOption(record))
        options.push_back(option);
    return options;
}

} // namespace fuzz
