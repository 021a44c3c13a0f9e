// WindowServer.h - fewer questions to the window server, each of which waits for an answer.
#pragma once

namespace dialog {

// The toolkit asks the window server how wide a window's frame is each time a part of the window is
// drawn, and for each key, and looks for the pointer anew after each key.  From here on a frame is
// asked for again once the server has told of a change, and the pointer once it is used.  Call it
// on the main thread when there is an application; a second call does nothing, nor does one for
// another window system.
void askWindowServerLess();

// As long as one lives, windows are made without the program's icon, which the toolkit otherwise
// works out and sends with each: 140 kilobytes before the window can be shown.  Without effect
// where askWindowServerLess() has none.
class WithoutIcons
{
  public:
    WithoutIcons() noexcept;
    ~WithoutIcons();
    WithoutIcons(const WithoutIcons&) = delete;
    WithoutIcons& operator=(const WithoutIcons&) = delete;

  private:
    const bool before_;
};

// The icon for such a window after all, by the toolkit's number of it; nothing for another number.
void giveIcon(int windowNumber);

} // namespace dialog
