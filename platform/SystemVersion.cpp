#include "platform/SystemVersion.hpp"

#include <array>
#include <charconv>

namespace printing {

std::optional<SystemVersion> parseSystemVersion(std::string_view text) noexcept
{
    std::array<std::int32_t, 3> numbers{};
    const char* at = text.data();
    const char* const end = at + text.size();
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        // from_chars takes a minus sign; a release has none.
        if (at == end || *at < '0' || *at > '9')
            return std::nullopt;
        const auto [stop, problem] = std::from_chars(at, end, numbers[i]);
        if (problem != std::errc{})
            return std::nullopt;
        if (stop == end)
            return SystemVersion{numbers[0], numbers[1], numbers[2]};
        if (*stop != '.')
            return std::nullopt;
        at = stop + 1;
    }
    return std::nullopt;
}

} // namespace printing
