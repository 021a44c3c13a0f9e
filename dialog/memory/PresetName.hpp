// PresetName.hpp - what a preset may be called.  Plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace dialog {

inline constexpr std::size_t kMostNameLetters = 60;

enum class NameFault : std::uint8_t
{
    None,
    Empty,
    TooLong,  // more than kMostNameLetters
    Reserved, // the pop-up has another entry of that name
};

// `typed` without blanks and other invisible characters around it, and with control characters
// inside as blanks.  UTF-8; other bytes stay as they are.
std::string tidiedName(std::string_view typed);

// `name` is tidied; letters are counted as Unicode characters.
NameFault checkName(std::string_view name, std::span<const std::string> reserved) noexcept;

} // namespace dialog
