// FrameWidths.hpp - what the window server has said of a window's frame, for as long as it holds.
#pragma once

#include <cstddef>
#include <vector>

namespace dialog {

// In pixels.
struct FrameWidths
{
    float left = 0;
    float right = 0;
    float top = 0;
    float bottom = 0;
};

// Whether an event of the X window system, by its type, leaves every window's frame as it is: keys,
// mouse, focus, and what has to be drawn.
bool leavesFrames(int eventType) noexcept;

// Whether the last that a user did after such an event, and after what it was before, was a key.
bool isTypingAfter(int eventType, bool before) noexcept;

// Answers only while somebody has said that what is kept will do; a question asked for another
// reason, as when a window is made or moved, goes to the server.
class FrameWidthsKept
{
  public:
    // While it lives; within another one too.
    class Use
    {
      public:
        Use(FrameWidthsKept& kept, bool keptWillDo) noexcept : kept_(kept), before_(kept.isInUse_)
        {
            kept_.isInUse_ = keptWillDo;
        }
        ~Use() { kept_.isInUse_ = before_; }
        Use(const Use&) = delete;
        Use& operator=(const Use&) = delete;

      private:
        FrameWidthsKept& kept_;
        const bool before_;
    };

    // Of a window, by its number in the window system, with a style of the toolkit's; nullptr when
    // the server has to be asked.  Valid until the next call.
    const FrameWidths* find(unsigned long window, unsigned int style) const noexcept;
    // Not of no window (0), of which the answer is another each time.
    void keep(unsigned long window, unsigned int style, const FrameWidths& widths);
    // Forgets everything unless the event leaves frames as they are.
    void eventCame(int eventType) noexcept;

  private:
    struct Entry
    {
        unsigned long window;
        unsigned int style;
        FrameWidths widths;
    };

    std::vector<Entry> entries_;
    bool isInUse_ = false;
};

} // namespace dialog
