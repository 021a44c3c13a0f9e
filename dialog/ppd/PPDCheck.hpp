// PPDCheck.hpp - a look at a PPD's bytes before libcups reads them.
//
// libcups opens a PPD in time that grows with the square of its options, papers, groups and custom
// parameters, follows gzip silently, and its marking calls can crash on a custom page size whose
// width or height is no length.  A file that would lead there is refused with a reason: 2 MiB of
// groups alone take libcups 24 seconds, all that passes here less than two.  Plain C++.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dialog {

inline constexpr std::size_t kMaxPPDBytes = 2 * 1024 * 1024;
inline constexpr std::size_t kMaxPPDOptions = 2000;
// Each with its paper and its printable area; plain ones may be more (PPDSizes.hpp).
inline constexpr std::size_t kMaxPPDSizes = 4000;
inline constexpr std::size_t kMaxPPDChoices = 20000;
inline constexpr std::size_t kMaxPPDGroups = 1000; // with the groups inside groups
inline constexpr std::size_t kMaxPPDCustomParameters = 1000;

enum class PPDFault : std::uint8_t
{
    None,
    TooLarge,
    Compressed,
    TooManyOptions,
    TooManySizes,
    TooManyChoices,
    TooManyGroups,
    TooManyCustomParameters,
    EndMark,
    CustomSizeNotALength,
};

struct PPDCheckResult
{
    PPDFault fault = PPDFault::None;
    std::size_t line = 0; // 1 and up; 0 when the fault has no line

    bool operator==(const PPDCheckResult&) const = default;
};

// `contents` is the whole file.
PPDCheckResult checkPPD(std::string_view contents) noexcept;

// The reason as the second half of a sentence, such as "it is compressed".
std::string_view reasonText(PPDFault fault) noexcept;

} // namespace dialog
