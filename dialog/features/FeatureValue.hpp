// FeatureValue.hpp - the choices of a feature as a job carries them, and back.  Plain C++.
//
// Choices are told by their place among the feature's; every vector of them is that long.
#pragma once

#include "dialog/features/Features.hpp"

#include <string>
#include <vector>

namespace dialog {

// Which choices are among the marked ones.
std::vector<bool> chosenOf(const Feature& feature, const std::vector<std::string>& marked);

// The chosen keywords with commas between them; None where none is chosen.
std::string valueOf(const Feature& feature, const std::vector<bool>& chosen);

// The keywords as valueOf would write them.
std::string joinedChoices(const std::vector<std::string>& keywords);

// Of a Switch.
bool isSwitchedOn(const Feature& feature, const std::vector<bool>& chosen) noexcept;
std::vector<bool> switched(const Feature& feature, bool on);

// The titles of a value's choices for people, with commas between them.
std::string valueTitle(const Feature& feature, const std::string& value);

} // namespace dialog
