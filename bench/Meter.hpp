// Meter.hpp - measures one operation at a time and writes it as a row.
//
//     Meter meter;
//     meter.measure("summary", [&] { [panel summaryInfo]; });
//
// Run as it is, a row is "name TAB nanoseconds TAB allocations": the median time and the fewest
// allocations of many repetitions.  Under valgrind --tool=callgrind --instr-atstart=no
// --collect-atstart=no a row is one run after a few warm ones, dumped under its name with its
// instructions; bench/run reads the dumps.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace bench {

// Calls of malloc, calloc and realloc so far, in the whole process.
std::uint64_t allocations() noexcept;

class Meter
{
  public:
    using Operation = std::function<void()>;

    // Each repetition: `prepare`, the measured `operation`, `finish`.
    void measure(const std::string& name, const Operation& operation,
                 const Operation& prepare = nullptr, const Operation& finish = nullptr);

    // Two operations that are compared, repeated by turns so that the machine's mood hits both.
    struct Side
    {
        std::string name;
        Operation operation;
        Operation prepare = nullptr;
        Operation finish = nullptr;
    };
    void compare(const std::vector<Side>& sides);

    // A figure that is not timed: "name TAB unit TAB value".
    static void figure(const std::string& name, const char* unit, double value);

    static bool countsInstructions() noexcept;

    // How long the repetitions of one row may take.
    std::chrono::milliseconds patience{400};
};

} // namespace bench
