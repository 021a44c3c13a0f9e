#include "dialog/keyboard/CopiesStep.hpp"

#include "dialog/CommandLine.hpp"

#include <algorithm>

namespace dialog {

std::string steppedCopies(std::string_view text, std::int32_t step)
{
    std::int32_t copies = kMinCopies;
    if (parseCopies(text, copies)) {
        copies = std::clamp(copies + step, kMinCopies, kMaxCopies);
    }
    return std::to_string(copies);
}

} // namespace dialog
