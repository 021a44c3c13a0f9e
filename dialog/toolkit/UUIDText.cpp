#include "dialog/toolkit/UUIDText.hpp"

#include <cstddef>
#include <string_view>

namespace dialog {

UUIDBytes asRandomUUID(UUIDBytes bytes) noexcept
{
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return bytes;
}

UUIDText textOfUUID(const UUIDBytes& bytes) noexcept
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    UUIDText text{};
    std::size_t place = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) {
            text[place++] = '-';
        }
        text[place++] = kDigits[bytes[i] >> 4];
        text[place++] = kDigits[bytes[i] & 0x0F];
    }
    return text;
}

} // namespace dialog
