#include "diagnostics/HexDump.hpp"

namespace diagnostics {

void HexLine::append(std::uint8_t byte) noexcept
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    if (isFull())
        return;
    digits_[2 * bytes_] = kDigits[byte >> 4];
    digits_[2 * bytes_ + 1] = kDigits[byte & 15];
    ++bytes_;
}

} // namespace diagnostics
