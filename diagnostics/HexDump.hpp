// HexDump.hpp - bytes as lines of hexadecimal digits, 16 bytes to a line.
//
//     HexLine line;
//     for (std::uint8_t byte : bytes) {
//         line.append(byte);
//         if (line.isFull()) { put(line.text()); line.clear(); }
//     }
//
// Plain C++; nothing here allocates or throws.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace diagnostics {

class HexLine
{
  public:
    static constexpr std::size_t kBytes = 16;

    // Two lower-case digits.  A full line takes no more.
    void append(std::uint8_t byte) noexcept;
    void clear() noexcept { bytes_ = 0; }
    bool isFull() const noexcept { return bytes_ == kBytes; }
    bool isEmpty() const noexcept { return bytes_ == 0; }
    std::string_view text() const noexcept { return {digits_.data(), 2 * bytes_}; }

  private:
    std::array<char, 2 * kBytes> digits_{};
    std::size_t bytes_ = 0;
};

// Calls `full` with each line of 16 bytes, then `rest` once with what is left: an empty text when
// the count is a multiple of 16.  Without bytes neither is called.
template <class Full, class Rest>
void forEachHexLine(const std::uint8_t* bytes, std::size_t count, Full full, Rest rest)
{
    HexLine line;
    for (std::size_t i = 0; i < count; ++i) {
        line.append(bytes[i]);
        if (line.isFull()) {
            full(line.text());
            line.clear();
        }
    }
    if (count != 0)
        rest(line.text());
}

} // namespace diagnostics
