// PageRange.hpp - which pages of a job are printed.  Plain C++.
#pragma once

#include <cstdint>

namespace printing {

inline constexpr std::uint32_t kAllPages = UINT32_MAX;

// Both count from 1; first <= last.
class PageRange
{
  public:
    std::uint32_t first() const noexcept { return first_; }
    std::uint32_t last() const noexcept { return last_; }

    // Each answers whether the page may be set, and changes nothing when not: page 0, or a first
    // page after the last.
    bool setFirst(std::uint32_t page) noexcept;
    bool setLast(std::uint32_t page) noexcept;

  private:
    std::uint32_t first_ = 1;
    std::uint32_t last_ = kAllPages;
};

} // namespace printing
