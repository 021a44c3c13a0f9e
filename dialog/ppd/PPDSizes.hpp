// PPDSizes.hpp - the page sizes of a PPD that has very many.
//
// libcups looks every size up among all before it, so that a PPD of 10,000 sizes takes most of a
// second to open.  Where the lines of the sizes are plain, they are read here in one pass; libcups
// opens the rest, and the sizes are put into the record that it made, as if it had read them.
// Plain C++.
#pragma once

#include <cups/ppd.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dialog {

// Fewer are read by libcups as fast.
inline constexpr std::size_t kManySizes = 100;
inline constexpr std::size_t kMaxPlainSizes = 50000;
// Of the whole file; what libcups opens of it has its own, smaller limit.
inline constexpr std::size_t kMaxPPDBytesWithSizes = 32 * 1024 * 1024;

class PPDSizes
{
  public:
    // No value unless there are at least kManySizes, at most kMaxPlainSizes, and everything about
    // them is plain: one line each for PageSize, PageRegion, ImageableArea and PaperDimension, in
    // the same order, without escapes, letters beyond ASCII, and texts that libcups would cut.
    // `contents` must outlive the result.
    static std::optional<PPDSizes> take(std::string_view contents);

    // The contents without all sizes but the first; every line keeps its number.
    const std::string& rest() const noexcept { return rest_; }

    // To a record that libcups made of rest(), before anything is marked in it.  False, and nothing
    // added, when the record is not as expected or there is no memory.
    bool addTo(ppd_file_t& record) const noexcept;

  private:
    struct Line
    {
        std::string_view name;
        std::string_view text;
        std::string_view code;
    };
    struct Area
    {
        float left = 0, bottom = 0, right = 0, top = 0;
    };
    struct Dimension
    {
        float width = 0, length = 0;
    };
    struct Reader;
    class Choices;

    std::string rest_;
    std::vector<Line> pageSizes_;
    std::vector<Line> pageRegions_;
    std::vector<Area> areas_;
    std::vector<Dimension> dimensions_;
};

} // namespace dialog
