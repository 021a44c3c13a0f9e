// FieldEdit.hpp - the ranges of one edit in a text field, as its formatter is told them.
//
// In UTF-16 units.  Plain C++.
#pragma once

#include <cstddef>

namespace printing {

struct TextRange
{
    std::size_t location = 0;
    std::size_t length = 0;
};

struct FieldEdit
{
    TextRange affected; // what is replaced
    std::size_t replacementLength = 0;
    TextRange selected; // the editor's selection before the edit
};

// Whether the edit lies inside a text of that length.
bool fits(const FieldEdit& edit, std::size_t textLength) noexcept;

// The caret behind the inserted text.
TextRange proposedSelection(const FieldEdit& edit) noexcept;

// Where the inserted text begins, so that a formatter finds it between the two selections; for a
// deletion the selection as it was, which for the backspace key is the caret behind the character.
TextRange originalSelection(const FieldEdit& edit) noexcept;

} // namespace printing
