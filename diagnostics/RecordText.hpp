// RecordText.hpp - texts and numbers out of fixed-size records, for a log line.
//
// Plain C++; nothing here allocates or throws.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace diagnostics {

// The text from `start` to the first NUL, or to the end of the `size` bytes when there is none.
std::string_view boundedText(const void* start, std::size_t size) noexcept;

// A number with six decimals, as "%f" writes it where the decimal separator is a point.
class SixDecimals
{
  public:
    explicit SixDecimals(float value) noexcept;
    const char* text() const noexcept { return text_.data(); }

  private:
    std::array<char, 64> text_{}; // 39 digits, a sign, a point, six decimals, NUL
};

} // namespace diagnostics
