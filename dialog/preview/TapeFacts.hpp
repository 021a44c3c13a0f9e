// TapeFacts.hpp - what a PPD says of its tapes and of the lengths that its printer takes.
#pragma once

#include "dialog/preview/FieldValues.hpp"
#include "dialog/preview/Label.hpp"

#include <cups/ppd.h>

#include <optional>
#include <string>

namespace dialog {

// Limits that the PPD does not state are 0, as a panel has them.  `ppd` may be nullptr.
LengthRules lengthRules(ppd_file_t* ppd);

struct TapeFacts
{
    Label label;          // with the paper's own length and no margin
    bool isFixed = false; // a die-cut label, whose length nobody sets
};

// No value without a PPD or when it has no such paper or gives it no size.
std::optional<TapeFacts> tapeFacts(ppd_file_t* ppd, const std::string& paper);

} // namespace dialog
