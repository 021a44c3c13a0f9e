// KeyboardWindow.hpp - a real window with two notifying fields, used by real keys.
//
//     KeyboardWindow window;
//     window.focus(window.length());
//     window.press("1 2 Tab");
//
// The keys go through the X server (xdotool), so they reach whatever has the focus there.
#pragma once

#include "support/PanelTest.hpp"
#include "textentry/PDETextField.h"

#include <string>

// What the field's delegate hears.
@interface FieldDelegate : NSObject
{
  @public
    Texts heard; // "change", "end 10" with the current event's type
}
@end

class KeyboardWindow
{
  public:
    KeyboardWindow();
    ~KeyboardWindow();
    KeyboardWindow(const KeyboardWindow&) = delete;
    KeyboardWindow& operator=(const KeyboardWindow&) = delete;

    NSWindow* window() const { return window_; }
    PDETextField13_v100_* length() const { return length_; }
    PDETextField13_v100_* margin() const { return margin_; }
    NSSlider* slider() const { return slider_; } // after the fields in the order of the Tab key
    Texts& heard() const { return delegate_->heard; }

    // Gives the field the focus, as a program does.
    void focus(NSView* view);

    // X key names, separated by spaces; waits until the last one was handled.
    void press(const std::string& keys);

    // A click in the middle of the view.
    void click(NSView* view);

    // What the field shows: its editor's text while it is being edited.
    static std::string shown(NSTextField* field);

  private:
    NSWindow* window_;
    PDETextField13_v100_* length_;
    PDETextField13_v100_* margin_;
    NSSlider* slider_;
    FieldDelegate* delegate_;
};

// Handles events until there are none for a moment.
void handleEvents(double quietSeconds = 0.15);

// Counts "TextFieldResignFirstResponderNotification" while it lives.
class PostCounter
{
  public:
    PostCounter();
    ~PostCounter();
    PostCounter(const PostCounter&) = delete;
    PostCounter& operator=(const PostCounter&) = delete;

    // The objects of the posts since the last call.
    std::vector<id> taken();

  private:
    id observer_;
};
