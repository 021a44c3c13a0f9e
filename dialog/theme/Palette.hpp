// Palette.hpp - the colours of the dialog, by what they are for, light and dark.
//
//     const Color text = color(Role::Text, Appearance::Dark);
//
// Plain C++.
#pragma once

#include <cstdint>

namespace dialog {

enum class Appearance : std::uint8_t
{
    Light,
    Dark,
};

enum class Role : std::uint8_t
{
    Window,        // behind everything
    Surface,       // what is typed or listed into: fields, tables
    Button,        // a button at rest; pop-ups too
    ButtonPressed, //
    Menu,          // an opened list
    Text,          //
    TextDisabled,  //
    Border,        // around what can be operated
    BorderQuiet,   // around groups, between parts, around what is disabled
    Accent,        // what is chosen, and the button that Return presses
    AccentPressed, //
    OnAccent,      // text and marks on both of them
    Focus,         // around what the keyboard acts on
    Track,         // the part of a slider that is not filled; a scroller's knob
    Selection,     // behind selected text
    OnSelection,   // selected text
    Failure,       // the text of what went wrong
    Tape,          // in the picture of the label, where it can be printed on
    TapeBlank,     // where it cannot
    Ink,           // what is printed on it
};
inline constexpr int kRoles = static_cast<int>(Role::Ink) + 1;

struct Color
{
    std::uint8_t red = 0; // sRGB, 0 to 255
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Color&) const = default;
};

Color color(Role role, Appearance appearance) noexcept;

// Relative luminance of an sRGB colour: 0 for black to 1 for white.
double luminance(Color color) noexcept;

// Contrast ratio of two colours in either order: 1 for equal ones to 21 for black on white.
// Text needs 4.5, the outline of a control 3 (WCAG 2, level AA).
double contrast(Color one, Color other) noexcept;

} // namespace dialog
