// shown COMMAND [ARGUMENT...] - how long a program takes until its window shows what it will show.
//
// Starts the command, looks at the window it opens every few milliseconds, and waits until the
// picture has not changed for half a second in which the program had hardly anything to do and the
// window's title did not end with dots, by which a program says that it still waits.  Then prints,
// in one line, the milliseconds from the start until the picture was last seen changing, and the
// program's resident memory in KiB, and ends the program.  Works alike for programs of every
// toolkit.  Needs a window manager that keeps _NET_CLIENT_LIST.  Exit status 1 when no window came
// within two minutes.
#include "bench/start/NewestWindow.hpp"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kSettled = std::chrono::milliseconds(500);
constexpr auto kDeadline = std::chrono::minutes(2);
constexpr auto kPatience = std::chrono::seconds(5);
constexpr useconds_t kInterval = 3000; // microseconds
constexpr long kHardlyAnything = 5;    // clock ticks

double milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

// A number for the window's picture; 0 while it cannot be seen or is of one colour.
std::uint64_t picture(Display* display, Window window)
{
    XWindowAttributes attributes;
    if (XGetWindowAttributes(display, window, &attributes) == 0 ||
        attributes.map_state != IsViewable)
        return 0;
    XImage* const image = XGetImage(display, window, 0, 0, static_cast<unsigned>(attributes.width),
                                    static_cast<unsigned>(attributes.height), AllPlanes, ZPixmap);
    if (image == nullptr)
        return 0;
    const auto bytes =
        static_cast<std::size_t>(image->bytes_per_line) * static_cast<std::size_t>(image->height);
    std::uint64_t hash = 0xcbf29ce484222325U;
    std::uint64_t first = 0;
    bool uniform = true;
    for (std::size_t at = 0; at + 8 <= bytes; at += 8) {
        std::uint64_t eight = 0;
        std::memcpy(&eight, image->data + at, 8);
        first = at == 0 ? eight : first;
        uniform = uniform && eight == first;
        hash = (hash ^ eight) * 0x100000001b3U;
    }
    XDestroyImage(image);
    return uniform ? 0 : hash;
}

std::string residentKiB(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    std::string word;
    while (status >> word) {
        if (word == "VmRSS:") {
            status >> word;
            return word;
        }
    }
    return "0";
}

// In clock ticks, the whole program.
long processorTime(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    std::getline(status, line);
    std::istringstream fields(line.substr(std::min(line.rfind(')') + 1, line.size())));
    std::string skipped;
    for (int i = 0; i < 11; ++i) // up to the 14th of all
        fields >> skipped;
    long user = 0;
    long system = 0;
    fields >> user >> system;
    return user + system;
}

bool saysThatItWaits(Display* display, Window window)
{
    char* title = nullptr;
    if (XFetchName(display, window, &title) == 0)
        return false;
    const bool waits = std::string_view(title).ends_with("...");
    XFree(title);
    return waits;
}

int ignoreError(Display*, XErrorEvent*)
{
    return 0; // the window may go while it is looked at
}

} // namespace

int main(int argc, char** argv)
{
    Display* const display = argc > 1 ? XOpenDisplay(nullptr) : nullptr;
    if (display == nullptr) {
        std::fputs(argc > 1 ? "shown: no display\n" : "usage: shown COMMAND [ARGUMENT...]\n",
                   stderr);
        return 2;
    }
    XSetErrorHandler(ignoreError);
    const Window before = newestWindow(display);
    const Clock::time_point start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        close(ConnectionNumber(display));
        execvp(argv[1], argv + 1);
        std::perror(argv[1]);
        _exit(127);
    }
    std::uint64_t last = 0;
    Clock::time_point changed = start;
    Clock::time_point quiet = start;
    long worked = 0;
    bool settled = false;
    while (!settled && Clock::now() - start < kDeadline && waitpid(child, nullptr, WNOHANG) == 0) {
        const Window window = newestWindow(display);
        const Clock::time_point now = Clock::now();
        const std::uint64_t seen =
            window == None || window == before ? 0 : picture(display, window);
        if (seen != last) {
            last = seen;
            changed = now;
        }
        // What is still at work may still have something to show.
        if (const long time = processorTime(child); time > worked + kHardlyAnything) {
            worked = time;
            quiet = now;
        }
        if (window != None && saysThatItWaits(display, window))
            changed = now;
        settled = last != 0 && now - std::max(changed, quiet) > kSettled;
        usleep(kInterval);
    }
    if (settled) {
        std::printf("%.1f %s\n", milliseconds(changed - start), residentKiB(child).c_str());
    } else {
        std::fputs("shown: no window came\n", stderr);
    }
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    // The next program's window can get the same number, and must not be taken for one that was
    // there before.
    const Clock::time_point ended = Clock::now();
    while (newestWindow(display) != before && Clock::now() - ended < kPatience)
        usleep(kInterval);
    XCloseDisplay(display);
    return settled ? 0 : 1;
}
