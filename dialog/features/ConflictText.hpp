// ConflictText.hpp - what the dialog says of choices that do not go together.  Plain C++.
#pragma once

#include "dialog/features/Constraints.hpp"
#include "dialog/features/Features.hpp"
#include "dialog/features/Resolving.hpp"

#include <string>
#include <vector>

namespace dialog {

// Resolution "600 dpi" does not go with Density "Dark".
std::string conflictSentence(const Conflict& conflict, const Features& features);

// The same with the number of further conflicts, when there are any.
std::string conflictSentence(const std::vector<Conflict>& conflicts, const Features& features);

// The title of the button that makes the changes: Set Density to "Normal".
std::string changesTitle(const std::vector<Change>& changes, const Features& features);

// When something holds on to another choice than the one just made.
std::string choiceNotKept(const Feature& feature, const std::string& kept);

} // namespace dialog
