// Saving.hpp - the length and the margin that a job is given, always in millimetres.  Plain C++.
#pragma once

#include "pagesettings/PanelRules.hpp"
#include "tape/TapeState.hpp"

#include <optional>

namespace pagesettings {

// A paper as the panel shows it, and whether it takes over the length field.
struct ShownPaper
{
    NumberText text;
    float value = 0; // of the text, in the panel's unit
    bool replacesField = false;
};

// The paper takes over when it is another one than last time (`lastShown`) and the field still
// shows the last one: a length that the user typed survives a change of paper.
ShownPaper shownPaper(double paperMillimetres, float lastShown, float fieldValue,
                      const PanelRules& rules) noexcept;

// The length to save: of the paper's text when it took over the field or there is no field yet,
// else the field's number in the panel's unit.
double lengthOfPaper(const NumberText& shown, const PanelRules& rules) noexcept;
double lengthOfField(FieldValue field, const PanelRules& rules) noexcept;

// The text saved: held to the limits unless the label has a length of its own.
NumberText savedLengthText(double millimetres, std::int32_t tapeState,
                           const PanelRules& rules) noexcept;

// The margin to save: the field's, or before there is a field the PPD's default as it would be
// shown.
double marginOfField(FieldValue field, const PanelRules& rules) noexcept;
double marginOfDefault(double defaultMillimetres, const PanelRules& rules) noexcept;

// The text saved.  Less than a tenth of a millimetre above the minimum is the minimum, on every
// kind of tape; on continuous tape it is held to the limits.
NumberText savedMarginText(double millimetres, std::int32_t tapeState,
                           const PanelRules& rules) noexcept;

} // namespace pagesettings
