// UUIDText.hpp - identifiers that no two things share, as the toolkit makes and writes them.  Plain
// C++.
#pragma once

#include <array>
#include <cstdint>

namespace dialog {

using UUIDBytes = std::array<std::uint8_t, 16>;
using UUIDText = std::array<char, 36>;

// Of sixteen bytes by chance one made by chance: version 4 in the seventh byte, the variant in the
// ninth.
UUIDBytes asRandomUUID(UUIDBytes bytes) noexcept;

// "01234567-89AB-CDEF-0123-456789ABCDEF".
UUIDText textOfUUID(const UUIDBytes& bytes) noexcept;

} // namespace dialog
