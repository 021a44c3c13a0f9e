// PanelRules.hpp - what a printer's PPD fixes for length and margin, gathered once.  Plain C++.
#pragma once

#include "pagesettings/Limits.hpp"

namespace pagesettings {

struct PanelRules
{
    Unit unit = Unit::Millimetres;
    bool wholeLengths = false; // in millimetres only
    bool wholeMargins = false; // in millimetres only
    Limits limits;
};

// A field's number in both precisions, as the toolkit reads it: comparisons use single precision,
// what is kept uses double.
struct FieldValue
{
    float asFloat = 0;
    double asDouble = 0;
};

} // namespace pagesettings
