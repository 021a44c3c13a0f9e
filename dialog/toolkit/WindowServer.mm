#include "dialog/toolkit/WindowServer.h"

#include "dialog/toolkit/FrameWidths.hpp"
#include "dialog/toolkit/ReplaceMethod.h"

#include <AppKit/AppKit.h>
#include <GNUstepGUI/GSDisplayServer.h>
#include <objc/runtime.h>

#include <cstring>

// Loads the part of the toolkit that speaks to the window server; a second call does nothing.
extern "C" BOOL initialize_gnustep_backend(void);

namespace dialog {

namespace {

using StyleOffsets = void (*)(id, SEL, float*, float*, float*, float*, unsigned int, unsigned long);
using ProcessEvent = void (*)(id, SEL, void*);
using FlushWindowRect = void (*)(id, SEL, NSRect, int);
using ResetCursorRects = void (*)(id, SEL);
using SetIcon = void (*)(id, SEL, unsigned long);

StyleOffsets styleOffsetsOfToolkit = nullptr;
ProcessEvent processEventOfToolkit = nullptr;
FlushWindowRect flushWindowRectOfToolkit = nullptr;
ResetCursorRects resetCursorRectsOfToolkit = nullptr;
SetIcon setIconOfToolkit = nullptr;

FrameWidthsKept kept;
bool isTyping = false;
bool isWithoutIcons = false;

void styleOffsets(id self, SEL selector, float* left, float* right, float* top, float* bottom,
                  unsigned int style, unsigned long window)
{
    if (const FrameWidths* const known = kept.find(window, style)) {
        *left = known->left;
        *right = known->right;
        *top = known->top;
        *bottom = known->bottom;
        return;
    }
    styleOffsetsOfToolkit(self, selector, left, right, top, bottom, style, window);
    kept.keep(window, style, {*left, *right, *top, *bottom});
}

void processEvent(id self, SEL selector, void* event)
{
    // Every event of this window system begins with its type.
    int type = 0;
    std::memcpy(&type, event, sizeof type);
    kept.eventCame(type);
    isTyping = isTypingAfter(type, isTyping);
    const FrameWidthsKept::Use use(kept, leavesFrames(type));
    processEventOfToolkit(self, selector, event);
}

void flushWindowRect(id self, SEL selector, NSRect rect, int window)
{
    const FrameWidthsKept::Use use(kept, true);
    flushWindowRectOfToolkit(self, selector, rect, window);
}

// What the pointer looks like over each place is found out after every key, before the next one.
// Here it stays due while somebody types, and is found when the mouse is used again.
void resetCursorRects(id self, SEL selector)
{
    if (!isTyping) {
        resetCursorRectsOfToolkit(self, selector);
    }
}

void setIcon(id self, SEL selector, unsigned long window)
{
    if (!isWithoutIcons) {
        setIconOfToolkit(self, selector, window);
    }
}

// Another release may have a method of this name that takes something else.
bool takes(Class cls, SEL selector, const char* types)
{
    const Method method = class_getInstanceMethod(cls, selector);
    return method != nullptr &&
           std::strncmp(method_getTypeEncoding(method), types, std::strlen(types)) == 0;
}

} // namespace

void askWindowServerLess()
{
    initialize_gnustep_backend();
    const Class server = objc_lookUpClass("XGServer");
    const SEL offsets = sel_registerName("styleoffsets::::::");
    const SEL process = sel_registerName("processEvent:");
    const SEL flush = sel_registerName("flushwindowrect::");
    if (styleOffsetsOfToolkit != nullptr || server == Nil ||
        !takes(server, offsets, "v60@0:8^f16^f24^f32^f40I48Q52") ||
        !takes(server, process, "v24@0:8^") ||
        !takes(server, flush, "v52@0:8{_NSRect={_NSPoint=dd}{_NSSize=dd}}16i48")) {
        return;
    }
    replaceOwnMethod(server, offsets, &styleOffsets, styleOffsetsOfToolkit);
    replaceOwnMethod(server, process, &processEvent, processEventOfToolkit);
    replaceOwnMethod(server, flush, &flushWindowRect, flushWindowRectOfToolkit);
    const SEL icon = sel_registerName("_setNetWMIconFor:");
    if (takes(server, icon, "v24@0:8Q16")) {
        replaceOwnMethod(server, icon, &setIcon, setIconOfToolkit);
    }
    replaceOwnMethod([NSWindow class], @selector(resetCursorRects), &resetCursorRects,
                     resetCursorRectsOfToolkit);
}

WithoutIcons::WithoutIcons() noexcept : before_(isWithoutIcons)
{
    isWithoutIcons = true;
}

WithoutIcons::~WithoutIcons()
{
    isWithoutIcons = before_;
}

void giveIcon(int windowNumber)
{
    NSWindow* const window = GSWindowWithNumber(windowNumber);
    if (window == nil || setIconOfToolkit == nullptr) {
        return;
    }
    GSDisplayServer* const server = GSServerForWindow(window);
    setIconOfToolkit(server, sel_registerName("_setNetWMIconFor:"),
                     reinterpret_cast<unsigned long>([server windowDevice:windowNumber]));
}

} // namespace dialog
