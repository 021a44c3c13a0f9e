#include "diagnostics/RecordText.hpp"

#include <charconv>
#include <cstring>

namespace diagnostics {

std::string_view boundedText(const void* start, std::size_t size) noexcept
{
    if (start == nullptr || size == 0)
        return {};
    const auto* const text = static_cast<const char*>(start);
    const void* const end = std::memchr(text, '\0', size);
    return {text,
            end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : size};
}

SixDecimals::SixDecimals(float value) noexcept
{
    // The last byte stays the NUL.
    std::to_chars(text_.data(), text_.data() + text_.size() - 1, static_cast<double>(value),
                  std::chars_format::fixed, 6);
}

} // namespace diagnostics
