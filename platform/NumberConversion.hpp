// NumberConversion.hpp - a number into a C type, and whether it fitted.  Plain C++.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace printing {

template <typename To>
struct Converted
{
    To value;   // the nearest that `To` can hold; 0 for a number that is not a number
    bool exact; // nothing was lost
};

// From a double.
template <typename To>
Converted<To> convertNumber(double from) noexcept
{
    if constexpr (std::is_same_v<To, double>) {
        return {from, true};
    } else if constexpr (std::is_same_v<To, float>) {
        // Narrowing a finite double beyond float's range is undefined.
        constexpr double limit = std::numeric_limits<float>::max();
        if (std::isfinite(from) && std::fabs(from) > limit)
            return {static_cast<float>(std::copysign(limit, from)), false};
        const float narrowed = static_cast<float>(from);
        return {narrowed, std::isnan(from) || static_cast<double>(narrowed) == from};
    } else {
        static_assert(std::is_signed_v<To>);
        if (std::isnan(from))
            return {0, false};
        // The lower limit is a power of two and exact in a double; the upper may not be.
        constexpr double lowest = static_cast<double>(std::numeric_limits<To>::min());
        if (from < lowest)
            return {std::numeric_limits<To>::min(), false};
        if (from >= -lowest)
            return {std::numeric_limits<To>::max(), false};
        const To whole = static_cast<To>(from);
        return {whole, static_cast<double>(whole) == from};
    }
}

// From an integer.
template <typename To>
Converted<To> convertNumber(std::int64_t from) noexcept
{
    if constexpr (std::is_floating_point_v<To>) {
        const To value = static_cast<To>(from);
        // 2^63 is where a rounded value no longer comes back as an int64_t.
        const bool fits = value < static_cast<To>(9223372036854775808.0);
        return {value, fits && static_cast<std::int64_t>(value) == from};
    } else {
        static_assert(std::is_signed_v<To>);
        if (from < std::numeric_limits<To>::min())
            return {std::numeric_limits<To>::min(), false};
        if (from > std::numeric_limits<To>::max())
            return {std::numeric_limits<To>::max(), false};
        return {static_cast<To>(from), true};
    }
}

} // namespace printing
