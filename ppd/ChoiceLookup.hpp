// ChoiceLookup.hpp - finding a choice in a list by its keyword, its mark or its default flag.
//
// A list is a count and a function from index to entry, so that nothing is copied for a look-up.
// Indexes count from 0.  Plain C++; the PPD records are read by the callers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace ppd {

// Answered for "no choice is marked" and for "no default in the list".
inline constexpr std::ptrdiff_t kNoIndex = -1;

// CUPS keeps a choice keyword in 41 bytes; a longer one is cut there.
inline constexpr std::size_t kKeywordLength = 41;

// Whether every byte is 7-bit ASCII, the only encoding of a choice keyword.
bool isASCII(std::string_view text) noexcept;

// Whether a choice is its option's default: the keywords agree, as far as CUPS keeps them.
bool isDefaultKeyword(std::string_view choice, std::string_view defaultChoice) noexcept;

// Whether an index picks an entry of a list of `count`.
bool isInList(std::ptrdiff_t index, std::size_t count) noexcept;

// The index to save: below 0 becomes 0, past the end becomes the last entry.  None for an empty
// list.
std::optional<std::size_t> indexToSave(std::ptrdiff_t index, std::size_t count) noexcept;

// The first index for which `matches` answers true.
template <class Matches>
std::optional<std::size_t> firstIndex(std::size_t count, Matches matches)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (matches(i))
            return i;
    }
    return std::nullopt;
}

// The same, tried first where the last search found one; `place` is kept for the next.  Right for a
// list that does not change meanwhile and entries that match alike.
template <class Matches>
std::optional<std::size_t> firstIndexFrom(std::size_t& place, std::size_t count, Matches matches)
{
    if (place < count && matches(place))
        return place;
    const auto found = firstIndex(count, matches);
    if (found)
        place = *found;
    return found;
}

// Where the marked keyword stands in the list: 0 when it is not there, for a panel must show
// something and the first choice is the PPD's own first.
template <class KeywordAt>
std::ptrdiff_t indexOfMarked(std::string_view marked, std::size_t count, KeywordAt keywordAt)
{
    if (!isASCII(marked))
        return 0;
    const auto found =
        firstIndex(count, [&](std::size_t i) { return std::string_view(keywordAt(i)) == marked; });
    return static_cast<std::ptrdiff_t>(found.value_or(0));
}

// Where the default stands: kNoIndex in a list without one, yet 0 in an empty list.
template <class IsDefaultAt>
std::ptrdiff_t indexOfDefault(std::size_t count, IsDefaultAt isDefaultAt)
{
    if (count == 0)
        return 0;
    const auto found = firstIndex(count, isDefaultAt);
    return found ? static_cast<std::ptrdiff_t>(*found) : kNoIndex;
}

} // namespace ppd
