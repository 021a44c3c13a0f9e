// WantedLength.hpp - a length asked for on the command line, as a paper has it.
#pragma once

#include <optional>
#include <string_view>

namespace dialog {

// Keywords of the options whose values are lengths in millimetres that a PPD does not list.
inline constexpr std::string_view kTapeLengthOption = "VnTapeLength";
inline constexpr std::string_view kMarginOption = "VnMargin";

// A positive, finite number of millimetres with a dot; nothing else around it.
std::optional<double> parseMillimetres(std::string_view text) noexcept;

// The same for a margin, which may be 0 as well.
std::optional<double> parseMargin(std::string_view text) noexcept;

// Points, by the factor that the panel measures a paper with; measured so, they are never less than
// the millimetres.  `millimetres` is positive and finite.
double paperPoints(double millimetres) noexcept;

} // namespace dialog
