// Validation.hpp - corrections of the length and the margin that the user entered.
//
// An entry is never refused: it becomes the nearest limit, is rounded up to what the panel can
// show, and goes back into field and slider.  A margin above half the length lengthens the tape to
// two margins and one printer dot.  All numbers but the limits are in the panel's unit.
// Not here: which control is read or written (PageSettingPDE+IBAction.mm).  Plain C++.
#pragma once

#include "pagesettings/PanelRules.hpp"

#include <cstdint>

namespace pagesettings {

// What goes back on screen.
struct Correction
{
    NumberText text;  // into the field
    double value = 0; // into the slider
};

// While the user types only a value above a maximum is corrected, for a number grows from its first
// digit; minimums wait for the end of editing.  `typed` is the panel's byte: 1 after typing, 0
// otherwise.
bool mayStandWhileTyping(std::uint8_t typed, float length, float margin,
                         const PanelRules& rules) noexcept;

Correction correctedLength(FieldValue length, const PanelRules& rules) noexcept;
Correction correctedMargin(FieldValue margin, const PanelRules& rules) noexcept;

// Whether a margin (as corrected) leaves nothing between two of them.  Exactly half is allowed.
bool isMarginTooWide(double margin, float length) noexcept;

// Two margins and one dot; the dot is in millimetres.  Not held to the maximum length.
Correction lengthForMargin(double margin, double dotMillimetres, const PanelRules& rules) noexcept;

} // namespace pagesettings
