// SystemVersion.hpp - a system release and its text.  Plain C++.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace printing {

struct SystemVersion
{
    std::int32_t major = 0;
    std::int32_t minor = 0;
    std::int32_t bugFix = 0;
};

// One to three numbers with points between them; missing ones are 0.  Nothing for any other text:
// signs, spaces, an empty number, a fourth number, one above 2147483647.
std::optional<SystemVersion> parseSystemVersion(std::string_view text) noexcept;

} // namespace printing
