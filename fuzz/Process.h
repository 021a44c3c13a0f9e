// Process.h - what a fuzz target needs of its process: the bundle, and a pool for every run.
#pragma once

#import <AppKit/AppKit.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace fuzz {

// Loads the bundle; ends the program when it cannot be loaded.  With windows, needs a display.
enum class Windows
{
    No,
    Yes
};
void start(Windows windows);

NSBundle* bundle();
// Ends the program when the bundle has no such class.
Class classNamed(const char* name);

// What must hold.  Ends the program with the sentence, for the fuzzer to keep the input.
void require(bool holds, const char* sentence);

class Pool
{
  public:
    Pool() : pool_([[NSAutoreleasePool alloc] init]) {}
    ~Pool() { [pool_ release]; }
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

  private:
    NSAutoreleasePool* pool_;
};

// The input of one run, eaten from the front.  Past the end everything is 0 or empty.
class Food
{
  public:
    Food(const std::uint8_t* data, std::size_t size)
        : rest_(reinterpret_cast<const char*>(data), size)
    {
    }
    bool isEmpty() const { return rest_.empty(); }
    std::uint8_t byte()
    {
        if (rest_.empty())
            return 0;
        const auto first = static_cast<std::uint8_t>(rest_.front());
        rest_.remove_prefix(1);
        return first;
    }
    std::uint8_t below(std::uint8_t count) { return static_cast<std::uint8_t>(byte() % count); }
    bool flag() { return (byte() & 1) != 0; }
    // Up to the next zero byte.
    std::string_view text()
    {
        const std::size_t end = std::min(rest_.find('\0'), rest_.size());
        const std::string_view result = rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
        return result;
    }
    std::string_view rest() const { return rest_; }

  private:
    std::string_view rest_;
};

// nil where the bytes are no UTF-8.
NSString* stringOf(std::string_view bytes);

} // namespace fuzz

// What the fuzzer, or the replay of its finds, calls.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
