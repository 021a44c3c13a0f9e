// BuiltIn.hpp - what the program carries with it: the sample printer and the sample label.
#pragma once

#include <string_view>

namespace dialog {

std::string_view samplePPD() noexcept;
std::string_view sampleLabel() noexcept; // a PNG

inline constexpr std::string_view kSampleLabelName = "label.png";

} // namespace dialog
