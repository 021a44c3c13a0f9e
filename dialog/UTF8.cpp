#include "dialog/UTF8.hpp"

#include <cstdint>

namespace dialog {

namespace {

// The length of the well-formed character that `text` begins with, in bytes; 0 for any other.
std::size_t firstLength(std::string_view text) noexcept
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) {
        return 1;
    }
    const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (length == 0 || lead > 0xF4 || text.size() < length) {
        return 0;
    }
    std::uint32_t code = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) {
            return 0;
        }
        code = code << 6 | (byte(i) & 0x3Fu);
    }
    constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isHalfOfPair = code >= 0xD800 && code <= 0xDFFF;
    return code >= kLeast[length] && code <= 0x10FFFF && !isHalfOfPair ? length : 0;
}

} // namespace

bool isUTF8(std::string_view text) noexcept
{
    while (!text.empty()) {
        const std::size_t length = firstLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

std::string asUTF8(std::string_view text)
{
    if (isUTF8(text)) {
        return std::string(text);
    }
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80) {
            result += c;
        } else {
            result += static_cast<char>(0xC0 | byte >> 6);
            result += static_cast<char>(0x80 | (byte & 0x3F));
        }
    }
    return result;
}

} // namespace dialog
