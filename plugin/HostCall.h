// HostCall.h - asking and telling the print dialog, whose methods may raise.
//
//     printer = plugin::answerOf([&] { return [pdePluginCallbackObject PMPrinter]; });
//
// What the dialog raises goes to the log and no further: it must not take the panel down, nor come
// back to the dialog out of a message of its own.  A C++ exception passes through.
#pragma once

#include <AppKit/AppKit.h>

namespace plugin {

// One line of the log.
void noteRaised(NSObject* raised) noexcept;

// The dialog's answer; a null one when it raises.
template <class Ask>
auto answerOf(Ask ask) -> decltype(ask())
{
    // Not id: that would stop a C++ exception too, and end the program.
    @try {
        return ask();
    } @catch (NSObject* raised) {
        noteRaised(raised);
    }
    return {};
}

// Whether the dialog took what it was told.
template <class Tell>
bool isTaken(Tell tell)
{
    return answerOf([&] {
        tell();
        return true;
    });
}

} // namespace plugin
