#include "dialog/background/Errand.hpp"

#include <cstddef>
#include <system_error>
#include <thread>

namespace dialog {

namespace {

struct Running
{
    std::mutex mutex;
    std::condition_variable ended;
    std::size_t count = 0;
};

// Never destroyed: a thread that hangs may end after everything else.
Running& running()
{
    static Running* const all = new Running;
    return *all;
}

} // namespace

void runAside(std::function<void()> work)
{
    {
        const std::lock_guard lock(running().mutex);
        ++running().count;
    }
    auto run = [work = std::move(work)]() mutable {
        work();
        work = nullptr; // what it holds goes before it counts as ended
        const std::lock_guard lock(running().mutex);
        --running().count;
        running().ended.notify_all();
    };
    try {
        std::thread(run).detach();
    } catch (const std::system_error&) {
        run();
    }
}

bool allWorkEnded(std::chrono::milliseconds patience)
{
    std::unique_lock lock(running().mutex);
    return running().ended.wait_for(lock, patience, [] { return running().count == 0; });
}

} // namespace dialog
