// typed KEY BACK COMMAND [ARGUMENT...] - how long from a key until the window shows what it did.
//
// Starts the command, waits until its window has the keyboard and nothing has been drawn in it for
// a while, and then presses KEY and BACK (names of the window system, such as 5 and BackSpace) by
// turns.  Prints the median of the microseconds from KEY until the first drawing in the window.
// Works alike for programs of every toolkit.  Exit status 1 when a key has no effect.
#include "bench/start/NewestWindow.hpp"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr int kWarm = 10;
constexpr int kRounds = 150;

class Watched
{
  public:
    Watched(Display* display, Window window)
        : display_(display), damage_(XDamageCreate(display, window, XDamageReportNonEmpty))
    {
    }

    // Whether something was drawn before the time is over.
    bool isDrawn(milliseconds patience) const
    {
        const Clock::time_point end = Clock::now() + patience;
        for (;;) {
            while (XPending(display_) > 0) {
                XEvent event;
                XNextEvent(display_, &event);
                if (event.type == damageEvent())
                    return true;
            }
            const auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now()).count();
            pollfd ready{ConnectionNumber(display_), POLLIN, 0};
            if (left <= 0 || poll(&ready, 1, static_cast<int>(left)) == 0)
                return false;
        }
    }

    // Until nothing is drawn for a while.
    void settle() const
    {
        do
            XDamageSubtract(display_, damage_, None, None);
        while (isDrawn(milliseconds(25)));
    }

  private:
    int damageEvent() const
    {
        static const int first = [this] {
            int event = 0;
            int error = 0;
            XDamageQueryExtension(display_, &event, &error);
            return event;
        }();
        return first + XDamageNotify;
    }

    Display* display_;
    Damage damage_;
};

int ignoreError(Display*, XErrorEvent*)
{
    return 0; // the window may go while it is looked at
}

void press(Display* display, KeyCode key)
{
    XTestFakeKeyEvent(display, key, True, 0);
    XTestFakeKeyEvent(display, key, False, 0);
    XFlush(display);
}

// The program's window; None when none comes.
Window windowAfter(Display* display, Window before)
{
    for (int i = 0; i < 400; ++i) {
        const Window window = newestWindow(display);
        if (window != before && window != None)
            return window;
        usleep(50000);
    }
    return None;
}

// Microseconds; below 0 when a key has no effect.
double median(Display* display, Window window, KeyCode key, KeyCode back)
{
    const Watched watched(display, window);
    usleep(1000000); // the keyboard comes after the window
    watched.settle();
    std::vector<double> times;
    for (int i = 0; i < kWarm + kRounds; ++i) {
        const Clock::time_point start = Clock::now();
        press(display, key);
        if (!watched.isDrawn(milliseconds(3000)))
            return -1;
        const Clock::time_point end = Clock::now();
        if (i >= kWarm)
            times.push_back(std::chrono::duration<double, std::micro>(end - start).count());
        watched.settle();
        press(display, back);
        watched.isDrawn(milliseconds(200));
        watched.settle();
    }
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

KeyCode keyCode(Display* display, const char* name)
{
    return XKeysymToKeycode(display, XStringToKeysym(name));
}

} // namespace

int main(int argc, char** argv)
{
    Display* const display = argc > 3 ? XOpenDisplay(nullptr) : nullptr;
    if (display == nullptr) {
        std::fputs(argc > 3 ? "typed: no display\n"
                            : "usage: typed KEY BACK COMMAND [ARGUMENT...]\n",
                   stderr);
        return 2;
    }
    XSetErrorHandler(ignoreError);
    const Window before = newestWindow(display);
    const pid_t child = fork();
    if (child == 0) {
        close(ConnectionNumber(display));
        execvp(argv[3], argv + 3);
        std::perror(argv[3]);
        _exit(127);
    }
    const Window window = windowAfter(display, before);
    const double time = window == None ? -1
                                       : median(display, window, keyCode(display, argv[1]),
                                                keyCode(display, argv[2]));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    if (time < 0) {
        std::fprintf(stderr, "typed: %s shows nothing for a key\n", argv[3]);
        return 1;
    }
    std::printf("%.0f\n", time);
    return 0;
}
