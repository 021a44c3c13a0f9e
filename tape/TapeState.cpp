#include "tape/TapeState.hpp"

namespace tape {

TapeState tapeStateForPaper(std::string_view ppdName) noexcept
{
    return ppdName.starts_with("DC") || ppdName.starts_with("AV") ? kFixedLengthLabel
                                                                  : kContinuousTape;
}

} // namespace tape
