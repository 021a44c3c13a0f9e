#include "dialog/Descriptor.hpp"

#include <cerrno>
#include <utility>

#include <unistd.h>

namespace dialog {

Descriptor::~Descriptor()
{
    if (number_ >= 0) {
        close(number_);
    }
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept
{
    std::swap(number_, other.number_);
    return *this;
}

int Descriptor::release() noexcept
{
    return std::exchange(number_, -1);
}

bool writeAll(int descriptor, std::string_view bytes) noexcept
{
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace dialog
