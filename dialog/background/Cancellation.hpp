// Cancellation.hpp - how one thread ends what another is waiting for.
//
// Whoever does the work looks at cancelled() now and then; a wait for bytes from a server is ended
// by shutting its socket down.  Plain C++ and POSIX.
#pragma once

#include <mutex>

namespace dialog {

class Cancellation
{
  public:
    Cancellation() = default;
    ~Cancellation();
    Cancellation(const Cancellation&) = delete;
    Cancellation& operator=(const Cancellation&) = delete;

    // From any thread, any number of times; it cannot be taken back.
    void cancel() noexcept;
    bool cancelled() const noexcept;

    // 1 once cancelled; for a library call that takes such a flag and only reads it.
    int* flag() noexcept { return &flag_; }

    // The socket that cancel() shuts down, at once when that has been called already.  The caller
    // goes on owning `descriptor`; a second call replaces the first.
    void watch(int descriptor) noexcept;
    void unwatch() noexcept;

  private:
    mutable std::mutex mutex_;
    int flag_ = 0;
    int socket_ = -1; // a duplicate, so that a number used again is never shut down by mistake
};

} // namespace dialog
