// NumberText.hpp - numbers as the panel shows and saves them, and back.
//
// Always a dot, whatever the process's locale says, and no heap: a text is a small value.
// Not here: which form a length or margin takes (DisplayText.hpp).  Plain C++.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pagesettings {

// A NUL-terminated ASCII text with room for every double in "%.2f" form.
class NumberText
{
  public:
    const char* c_str() const noexcept { return characters_.data(); }
    std::string_view view() const noexcept { return {characters_.data(), size_}; }

  private:
    friend NumberText fixedText(double value, int decimals) noexcept;
    friend NumberText wholeText(std::int32_t value) noexcept;

    std::array<char, 320> characters_{};
    std::size_t size_ = 0;
};

// "%.0f" to "%.2f"; infinity reads "inf" and not-a-number "nan".
NumberText fixedText(double value, int decimals) noexcept;

inline NumberText oneDecimalText(double value) noexcept
{
    return fixedText(value, 1);
}

inline NumberText twoDecimalText(double value) noexcept
{
    return fixedText(value, 2);
}

// "%d".
NumberText wholeText(std::int32_t value) noexcept;

// The decimal number that a text begins with, after white space; 0 when there is none.  Exponents
// are read; "inf", "nan" and hexadecimal numbers are not numbers here.
double leadingDouble(std::string_view text) noexcept;
float leadingFloat(std::string_view text) noexcept; // the double, narrowed

// To single precision; beyond its range the result is infinite.
float narrowed(double value) noexcept;

// To a whole number.  Values beyond the range become its nearest end, not-a-number 0.
std::int32_t truncated(double value) noexcept; // toward zero
std::int32_t roundedUp(double value) noexcept;

// Rounded up to tenths, as every margin and every corrected length is: multiplied and rounded in
// single precision, so that a value with one decimal keeps it (2.2 would become 2.3 in double),
// divided in double.
double roundedUpToTenths(float value) noexcept;

} // namespace pagesettings
