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

// Points, by the factor that printer panels measure a paper with: 0.0393701 inches a millimetre.
double paperPoints(double millimetres) noexcept;

} // namespace dialog
