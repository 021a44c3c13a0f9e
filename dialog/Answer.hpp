// Answer.hpp - what the program answers on standard output.  Plain C++.
#pragma once

#include "dialog/ExitStatus.hpp"

#include <string>

namespace dialog {

void answer(const std::string& text);

// `status`, after all answers have arrived where standard output goes.  When they have not (a full
// disk), that is said, and a success becomes NotWritten.
ExitStatus endOfAnswer(ExitStatus status);

} // namespace dialog
