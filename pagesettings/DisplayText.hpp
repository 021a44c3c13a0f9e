// DisplayText.hpp - the text of a length or a margin, and the length or margin behind a text.
//
// Inches have two decimals; millimetres have one, or none where the PPD asks for whole numbers.
// The length is cut or printed as it is while the margin rounds up, on purpose: a label may lose a
// fraction of a millimetre, but a margin below the one asked for would cut into the text.
// Not here: limits (Limits.hpp), corrections (Validation.hpp).  Plain C++.
#pragma once

#include "pagesettings/Limits.hpp"
#include "pagesettings/NumberText.hpp"

namespace pagesettings {

// In inches, from millimetres, through single precision.
NumberText inchText(double millimetres) noexcept;

// In millimetres, rounded up to a whole number or to tenths: the ends and values of sliders, and
// margins.
NumberText roundedUpText(float millimetres, bool wholeNumbers) noexcept;

// A length in millimetres: whole numbers are cut toward zero.
NumberText millimetreLengthText(double millimetres, bool wholeNumbers) noexcept;

// A length or margin given in millimetres, as the panel shows it in its unit.
NumberText lengthText(double millimetres, Unit unit, bool wholeNumbers) noexcept;
NumberText marginText(float millimetres, Unit unit, bool wholeNumbers) noexcept;

// A number that is in the panel's unit already: what a moved slider puts into its field, and where
// a slider starts.  The length's field cuts, everything else rounds up.
NumberText cutTextInUnit(float value, Unit unit, bool wholeNumbers) noexcept;
NumberText roundedUpTextInUnit(float value, Unit unit, bool wholeNumbers) noexcept;

// The millimetres that a number in the panel's unit stands for.
double millimetresShown(double value, Unit unit) noexcept;

} // namespace pagesettings
