// TapeState.hpp - whether a tape's length may be set.  Plain C++.
#pragma once

#include <cstdint>
#include <string_view>

namespace tape {

enum TapeState : std::int32_t
{
    kContinuousTape = 0,  // length and margin are the user's
    kFixedLengthLabel = 1 // a die-cut label: both are the label's own
};

// Told by the PPD name of the page size: "DC..." and "AV..." (exactly so written) are labels.
TapeState tapeStateForPaper(std::string_view ppdName) noexcept;

} // namespace tape
