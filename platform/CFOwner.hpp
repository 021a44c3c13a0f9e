// CFOwner.hpp - owns one Core Foundation object and releases it.  Plain C++.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace printing {

// Takes over what a Create or Copy call answered; NULL is fine.
template <typename Ref>
class CFOwner
{
  public:
    CFOwner() = default;
    explicit CFOwner(Ref owned) : object_(owned) {}
    CFOwner(CFOwner&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    CFOwner& operator=(CFOwner&& other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }
    CFOwner(const CFOwner&) = delete;
    CFOwner& operator=(const CFOwner&) = delete;
    ~CFOwner() { CFRelease(object_); }

    Ref get() const { return object_; }
    Ref release() { return std::exchange(object_, nullptr); }
    explicit operator bool() const { return object_ != nullptr; }

  private:
    Ref object_ = nullptr;
};

} // namespace printing
