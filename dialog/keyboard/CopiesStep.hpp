// CopiesStep.hpp - the copies one press of an arrow key further.  Plain C++.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dialog {

// `step` copies more than the text says, within kMinCopies to kMaxCopies.  A text that is no number
// of copies becomes kMinCopies.
std::string steppedCopies(std::string_view text, std::int32_t step);

} // namespace dialog
