// StringEncodings.hpp - Core Foundation's encoding numbers and the toolkit's.  Plain C++.
#pragma once

#include <cstdint>

namespace printing {

inline constexpr std::uint32_t kNoFoundationEncoding = 0xffffffffU;
inline constexpr unsigned long kNoToolkitEncoding = 0;

// kNoToolkitEncoding for a number that the toolkit has no encoding for.
unsigned long toolkitEncoding(std::uint32_t foundationEncoding) noexcept;

// kNoFoundationEncoding for a number that Core Foundation has no encoding for.
std::uint32_t foundationEncoding(unsigned long toolkitEncoding) noexcept;

} // namespace printing
