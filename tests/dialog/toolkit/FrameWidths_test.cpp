#include "dialog/toolkit/FrameWidths.hpp"

#include <gtest/gtest.h>

namespace dialog {
namespace {

// Of the X window system.
constexpr int kKeyPress = 2;
constexpr int kKeyRelease = 3;
constexpr int kButtonPress = 4;
constexpr int kButtonRelease = 5;
constexpr int kMotionNotify = 6;
constexpr int kEnterNotify = 7;
constexpr int kLeaveNotify = 8;
constexpr int kFocusIn = 9;
constexpr int kExpose = 12;
constexpr int kVisibilityNotify = 15;
constexpr int kCreateNotify = 16;
constexpr int kMapNotify = 19;
constexpr int kReparentNotify = 21;
constexpr int kConfigureNotify = 22;
constexpr int kPropertyNotify = 28;
constexpr int kClientMessage = 33;
constexpr int kGenericEvent = 35;
constexpr int kFirstOfExtensions = 64;

constexpr FrameWidths kWidths{1, 2, 20, 5};

TEST(FrameWidthsKept, AnswersForTheSameWindowAndStyleWhileItMay)
{
    FrameWidthsKept kept;
    kept.keep(7, 1, kWidths);
    const FrameWidthsKept::Use use(kept, true);
    const FrameWidths* const found = kept.find(7, 1);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->left, 1);
    EXPECT_EQ(found->right, 2);
    EXPECT_EQ(found->top, 20);
    EXPECT_EQ(found->bottom, 5);
    EXPECT_EQ(kept.find(8, 1), nullptr);
    EXPECT_EQ(kept.find(7, 2), nullptr);
}

TEST(FrameWidthsKept, AnswersNothingUnlessItIsSaidThatWhatIsKeptWillDo)
{
    FrameWidthsKept kept;
    kept.keep(7, 1, kWidths);
    EXPECT_EQ(kept.find(7, 1), nullptr);
    {
        const FrameWidthsKept::Use use(kept, true);
        {
            const FrameWidthsKept::Use within(kept, false);
            EXPECT_EQ(kept.find(7, 1), nullptr);
        }
        EXPECT_NE(kept.find(7, 1), nullptr);
    }
    EXPECT_EQ(kept.find(7, 1), nullptr);
}

TEST(FrameWidthsKept, TakesTheLatestAnswer)
{
    FrameWidthsKept kept;
    kept.keep(7, 1, kWidths);
    kept.keep(7, 1, {3, 3, 3, 3});
    const FrameWidthsKept::Use use(kept, true);
    ASSERT_NE(kept.find(7, 1), nullptr);
    EXPECT_EQ(kept.find(7, 1)->top, 3);
}

TEST(FrameWidthsKept, KeepsNothingOfNoWindow)
{
    FrameWidthsKept kept;
    kept.keep(0, 1, kWidths);
    const FrameWidthsKept::Use use(kept, true);
    EXPECT_EQ(kept.find(0, 1), nullptr);
}

TEST(FrameWidthsKept, OutlivesKeysMouseFocusDrawingAndWhatExtensionsTell)
{
    for (const int event :
         {kKeyPress, kKeyRelease, kButtonPress, kButtonRelease, kMotionNotify, kEnterNotify,
          kLeaveNotify, kFocusIn, kExpose, kVisibilityNotify, kFirstOfExtensions, 65, 90, 127}) {
        FrameWidthsKept kept;
        kept.keep(7, 1, kWidths);
        kept.eventCame(event);
        const FrameWidthsKept::Use use(kept, true);
        EXPECT_NE(kept.find(7, 1), nullptr) << event;
        EXPECT_TRUE(leavesFrames(event)) << event;
    }
}

TEST(FrameWidthsKept, EndsWithEveryEventThatMayChangeAFrame)
{
    for (const int event :
         {0, 1, kCreateNotify, kMapNotify, kReparentNotify, kConfigureNotify, kPropertyNotify,
          kClientMessage, kGenericEvent, kFirstOfExtensions - 1}) {
        FrameWidthsKept kept;
        kept.keep(7, 1, kWidths);
        kept.eventCame(event);
        const FrameWidthsKept::Use use(kept, true);
        EXPECT_EQ(kept.find(7, 1), nullptr) << event;
        EXPECT_FALSE(leavesFrames(event)) << event;
    }
}

TEST(FrameWidthsKept, DoesNotGrowWithoutEnd)
{
    FrameWidthsKept kept;
    for (unsigned long window = 1; window <= 1000; ++window) {
        kept.keep(window, 1, kWidths);
    }
    const FrameWidthsKept::Use use(kept, true);
    int found = 0;
    for (unsigned long window = 1; window <= 1000; ++window) {
        found += kept.find(window, 1) != nullptr ? 1 : 0;
    }
    EXPECT_LE(found, 32);
    EXPECT_NE(kept.find(1000, 1), nullptr);
}

TEST(Typing, BeginsWithAKeyAndEndsWithTheMouse)
{
    for (const bool before : {false, true}) {
        EXPECT_TRUE(isTypingAfter(kKeyPress, before));
        EXPECT_TRUE(isTypingAfter(kKeyRelease, before));
        for (const int event :
             {kButtonPress, kButtonRelease, kMotionNotify, kEnterNotify, kLeaveNotify}) {
            EXPECT_FALSE(isTypingAfter(event, before)) << event;
        }
        for (const int event : {kFocusIn, kExpose, kPropertyNotify}) {
            EXPECT_EQ(isTypingAfter(event, before), before) << event;
        }
    }
}

} // namespace
} // namespace dialog
