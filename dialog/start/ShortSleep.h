// ShortSleep.h - no longer asleep than an answer takes.
//
// In a session in which no program of this toolkit has run yet, it asks the window manager four
// times how wide a window's frame is, and before it looks for an answer that takes a fraction of a
// millisecond it sleeps ten.
#pragma once

namespace dialog {

// As long as one lives, the toolkit's shortest sleeps are a hundredth as long.  Who sleeps so
// looks again afterwards, and goes by the clock to give up.
class ShortSleep
{
  public:
    ShortSleep();
    ~ShortSleep();
    ShortSleep(const ShortSleep&) = delete;
    ShortSleep& operator=(const ShortSleep&) = delete;
};

} // namespace dialog
