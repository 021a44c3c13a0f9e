// LengthWord.hpp - a length as a person writes it on a command line: "40", "40.5mm", "1.5 in".
//
// Plain C++.
#pragma once

#include "pagesettings/Limits.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace dialog {

struct LengthWord
{
    std::string number;                     // digits with at most one dot, as given
    std::optional<pagesettings::Unit> unit; // none: the printer's

    bool operator==(const LengthWord&) const = default;
};

// Digits, a dot and digits, then blanks and a unit if there is one: mm, in, inch or ".  Nothing for
// any other text; a field of the panel refuses the same ones.
std::optional<LengthWord> parseLength(std::string_view text);

// What to type into a field of that unit: the number as given, or converted where the word has
// another unit.
std::string typedText(const LengthWord& word, pagesettings::Unit unit);

// "40 mm", "1.5 in": the word with the unit that counts for it, for a message.
std::string shownLength(const LengthWord& word, pagesettings::Unit unit);
std::string_view unitName(pagesettings::Unit unit) noexcept;

} // namespace dialog
