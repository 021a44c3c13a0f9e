#include "platform/FieldEdit.hpp"

namespace printing {

bool fits(const FieldEdit& edit, std::size_t textLength) noexcept
{
    return edit.affected.location <= textLength &&
           edit.affected.length <= textLength - edit.affected.location;
}

TextRange proposedSelection(const FieldEdit& edit) noexcept
{
    return {edit.affected.location + edit.replacementLength, 0};
}

TextRange originalSelection(const FieldEdit& edit) noexcept
{
    return edit.replacementLength == 0 ? edit.selected : edit.affected;
}

} // namespace printing
