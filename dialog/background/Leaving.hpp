// Leaving.hpp - the end of the program.
#pragma once

#include "dialog/ExitStatus.hpp"

#include <chrono>

namespace dialog {

// Ends the process once the work on other threads has ended, or, without cleaning up, when it still
// hangs after `patience`: a server that does not answer must not hold the user's shell up.
[[noreturn]] void leave(ExitStatus status, std::chrono::milliseconds patience);

} // namespace dialog
