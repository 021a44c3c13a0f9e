// Descriptor.hpp - a file descriptor that is closed when its owner goes.  Plain C++.
#pragma once

#include <string_view>

namespace dialog {

class Descriptor
{
  public:
    // Takes over `number`; below 0 it is none.
    explicit Descriptor(int number) noexcept : number_(number) {}
    ~Descriptor();
    Descriptor(Descriptor&& other) noexcept : number_(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept;
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const noexcept { return number_; }
    int release() noexcept; // the caller closes it

  private:
    int number_;
};

// All of `bytes`, however often the kernel takes only a part; false leaves the reason in errno.
bool writeAll(int descriptor, std::string_view bytes) noexcept;

} // namespace dialog
