#include "ppd/ChoiceLookup.hpp"

#include <algorithm>

namespace ppd {

bool isASCII(std::string_view text) noexcept
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool isDefaultKeyword(std::string_view choice, std::string_view defaultChoice) noexcept
{
    return choice.substr(0, kKeywordLength) == defaultChoice.substr(0, kKeywordLength);
}

bool isInList(std::ptrdiff_t index, std::size_t count) noexcept
{
    return index >= 0 && static_cast<std::size_t>(index) < count;
}

std::optional<std::size_t> indexToSave(std::ptrdiff_t index, std::size_t count) noexcept
{
    if (count == 0)
        return std::nullopt;
    if (index < 0)
        return 0;
    return std::min(static_cast<std::size_t>(index), count - 1);
}

} // namespace ppd
