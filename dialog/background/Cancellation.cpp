#include "dialog/background/Cancellation.hpp"

#include <atomic>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace dialog {

Cancellation::~Cancellation()
{
    unwatch();
}

void Cancellation::cancel() noexcept
{
    const std::lock_guard lock(mutex_);
    std::atomic_ref(flag_).store(1);
    if (socket_ >= 0) {
        shutdown(socket_, SHUT_RDWR);
    }
}

bool Cancellation::cancelled() const noexcept
{
    return std::atomic_ref(const_cast<int&>(flag_)).load() != 0;
}

void Cancellation::watch(int descriptor) noexcept
{
    unwatch();
    const std::lock_guard lock(mutex_);
    socket_ = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
    if (socket_ >= 0 && cancelled()) {
        shutdown(socket_, SHUT_RDWR);
    }
}

void Cancellation::unwatch() noexcept
{
    const std::lock_guard lock(mutex_);
    if (socket_ >= 0) {
        close(socket_);
        socket_ = -1;
    }
}

} // namespace dialog
