// NewestWindow.hpp - finds a program's window from outside.
#pragma once

#include <X11/Xatom.h>
#include <X11/Xlib.h>

// The newest window that the window manager looks after; None without one.
inline Window newestWindow(Display* display)
{
    static const Atom kList = XInternAtom(display, "_NET_CLIENT_LIST", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long left = 0;
    unsigned char* data = nullptr;
    Window window = None;
    if (XGetWindowProperty(display, DefaultRootWindow(display), kList, 0, 1024, False, XA_WINDOW,
                           &type, &format, &count, &left, &data) == Success &&
        data != nullptr) {
        if (count > 0)
            window = reinterpret_cast<Window*>(data)[count - 1];
        XFree(data);
    }
    return window;
}
