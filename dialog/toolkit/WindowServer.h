// WindowServer.h - fewer questions to the window server, each of which waits for an answer.
#pragma once

namespace dialog {

// The toolkit asks the window server how wide a window's frame is each time a part of the window is
// drawn, and for each key, and looks for the pointer anew after each key.  From here on a frame is
// asked for again once the server has told of a change, and the pointer once it is used.  Call it
// on the main thread when there is an application; a second call does nothing, nor does one for
// another window system.
void askWindowServerLess();

} // namespace dialog
