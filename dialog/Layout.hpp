// Layout.hpp - where everything in the window goes.
//
// Points; the origin is the lower left corner of the window's content, y grows upwards.  The panel
// decides the size, the rest arranges itself around it.  Plain C++.
#pragma once

namespace dialog {

struct Size
{
    double width = 0;
    double height = 0;
};

struct Frame
{
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(const Frame&) const = default;
};

// How wide the words of the language are drawn.
struct WordWidths
{
    double labels = 0;  // the widest title beside a control
    double buttons = 0; // the widest that Cancel and Print ever have
    double copyCommand = 0;
};

struct WindowLayout
{
    Size content;
    Frame printerLabel, printerPopUp;
    Frame tapeLabel, tapePopUp;
    Frame presetsLabel, presetsPopUp;
    Frame copiesLabel, copiesField, copiesStepper;
    Frame chooser;
    Frame box;      // the frame around the pane
    Frame pane;     // the panel's view or the summary, inside the content
    Frame preview;  // the label, at the right of the box and as high
    Frame conflict; // empty unless one is to be said
    Frame message;
    Frame progress; // below a message of one line, in the same room
    Frame copyCommand, cancel, print;
};

// `pane` is the size the panel's view asks for; the window is never narrower than its own rows.
// `words` make room for the languages with long ones.  `conflictHeight` is that of the line about
// choices that do not go together, 0 without one.
WindowLayout layOut(Size pane, const WordWidths& words = {}, double conflictHeight = 0) noexcept;

// The width of that line.
double conflictWidth(Size pane) noexcept;

// The width of a push button whose title is drawn so wide: 90 or more, at most `most`.
double buttonWidth(double title, double most) noexcept;

} // namespace dialog
