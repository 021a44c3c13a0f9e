#include "platform/PageRange.hpp"

namespace printing {

bool PageRange::setFirst(std::uint32_t page) noexcept
{
    if (page == 0 || page > last_)
        return false;
    first_ = page;
    return true;
}

bool PageRange::setLast(std::uint32_t page) noexcept
{
    if (page == 0 || page < first_)
        return false;
    last_ = page;
    return true;
}

} // namespace printing
