// FieldValues.hpp - length and margin as a panel's fields have them while they are being edited.
//
// A panel tells the dialog an option when a value is saved, which is too late for a picture that
// follows the keys.  Its fields show the values all along; which field is which is found out by
// comparing them with what the panel has told.  Plain C++.
#pragma once

#include "pagesettings/Limits.hpp"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace dialog {

// How a printer's lengths are given and shown.
struct LengthRules
{
    pagesettings::Unit unit = pagesettings::Unit::Millimetres;
    bool wholeNumbers = false; // of length or margin
    pagesettings::Limits limits;
};

// Millimetres.
struct LengthAndMargin
{
    double length = 0;
    double margin = 0;

    bool operator==(const LengthAndMargin&) const = default;
};

// The millimetres that a field's text stands for; no value for a text that is no whole number or
// decimal fraction, and for one outside the limits, whose ends count as the panel's labels say
// them.
std::optional<double> lengthFromField(std::string_view text, const LengthRules& rules) noexcept;
std::optional<double> marginFromField(std::string_view text, const LengthRules& rules) noexcept;

// The fields' places among `texts`.
struct FieldPlaces
{
    std::optional<std::size_t> length;
    std::optional<std::size_t> margin;
};

// `texts` from the top down; `told` as the panel told the dialog, which may be rounded.  A field is
// never both; the upper one of two alike is the length.
FieldPlaces findFields(std::span<const std::string> texts, const LengthAndMargin& told,
                       const LengthRules& rules) noexcept;

// What a picture should show: what the fields say where they make sense together, else `last`.
LengthAndMargin valuesToShow(std::span<const std::string> texts, const FieldPlaces& places,
                             const LengthAndMargin& last, const LengthRules& rules) noexcept;

} // namespace dialog
