#include "dialog/background/Leaving.hpp"

#include "dialog/background/Errand.hpp"

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

namespace dialog {

void leave(ExitStatus status, std::chrono::milliseconds patience)
{
    if (allWorkEnded(patience)) {
        std::exit(static_cast<int>(status));
    }
    // What the program owns is still in use there.
    std::fflush(nullptr);
    _exit(static_cast<int>(status));
}

} // namespace dialog
