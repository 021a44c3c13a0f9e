// Constraints.hpp - which choices of a PPD do not go together, and which of them are made.
//
// Read from UIConstraints and NonUIConstraints (two choices) and cupsUIConstraints (two or more).
// libcups tells which options conflict, not with which others in one rule, so the rules are kept
// here.  Plain C++.
#pragma once

#include "dialog/ppd/PPDFile.hpp"

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace dialog {

// The choices that are made, by option keyword; a PickMany has any number.
using Marks = std::map<std::string, std::vector<std::string>, std::less<>>;

struct Setting
{
    std::string keyword;
    std::string choice;

    auto operator<=>(const Setting&) const = default;
};

struct Constraint
{
    // At least two.  An empty choice stands for any but None, Off and False.
    std::vector<Setting> terms;
    // What the PPD itself proposes instead; may be empty.
    std::vector<Setting> resolver;
};

using Constraints = std::vector<Constraint>;

// Every constraint whose options and choices the PPD has, spelled as there; PageRegion counts as
// PageSize.  A constraint that says the same as an earlier one is left out, and so is one that sets
// a choice against itself: nobody could ever make it.
Constraints constraintsOf(const PPDFile& ppd);

// The marked choices of the options that the constraints name.
Marks marksOf(const PPDFile& ppd, const Constraints& constraints);

// Choices that are made and do not go together.
struct Conflict
{
    std::vector<Setting> settings; // none with an empty choice
    std::size_t constraint = 0;    // its index
};

// In the order of the constraints.  What two constraints say alike comes once.
std::vector<Conflict> conflictsIn(const Constraints& constraints, const Marks& marks);

// The choices of the constraint's options that break it; empty when it is kept.
std::vector<Setting> brokenBy(const Constraint& constraint, const Marks& marks);

} // namespace dialog
