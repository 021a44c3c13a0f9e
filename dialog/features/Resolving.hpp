// Resolving.hpp - a way out when choices do not go together.
//
// What was chosen last stays as long as anything else can give way.  The tape in the printer, the
// lengths and what the printer is equipped with are never changed.  Plain C++.
#pragma once

#include "dialog/features/Constraints.hpp"
#include "dialog/features/Features.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace dialog {

struct Change
{
    std::string keyword;
    std::vector<std::string> choices; // all that are made from then on; a PickMany's may be none

    bool operator==(const Change&) const = default;
};

// Keywords in the order in which their options were chosen, each once.
using ChoiceOrder = std::vector<std::string>;

void noteChoice(ChoiceOrder& order, std::string_view keyword);

// Which of the conflict's options was chosen last; empty when none of them was.  One click of a
// user can change several options, so the very last choice may have nothing to do with the
// conflict.
std::string_view lastChosenIn(const Conflict& conflict, const ChoiceOrder& order) noexcept;

// Changes that end the conflict without bringing a new one: the PPD's own proposal, else one
// change, else two, else a change of what was chosen last.  An option goes back to its default
// before it goes to any other choice.  Empty when there is none, or none was found within bounds:
// constraints may be many and go round in circles.
std::vector<Change> changesToResolve(const Conflict& conflict, const Features& features,
                                     const Constraints& constraints, const Marks& marks,
                                     std::string_view lastChosen);

// Whether a user can do anything about it here, so that it is fair to hold the job back.
bool canBeResolved(const Conflict& conflict, const Features& features);

} // namespace dialog
