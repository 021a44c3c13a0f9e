#include "bench/Meter.hpp"

#include <valgrind/callgrind.h>

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace bench {

namespace {

constexpr int kWarmRuns = 2;
constexpr std::size_t kFewestRuns = 5;
constexpr std::size_t kMostRuns = 500;

using Clock = std::chrono::steady_clock;

struct Runs
{
    std::vector<std::int64_t> nanoseconds;
    std::uint64_t allocations = UINT64_MAX;

    std::int64_t median()
    {
        std::sort(nanoseconds.begin(), nanoseconds.end());
        return nanoseconds[nanoseconds.size() / 2];
    }
};

void call(const Meter::Operation& operation)
{
    if (operation)
        operation();
}

void runOnce(const Meter::Side& side)
{
    call(side.prepare);
    side.operation();
    call(side.finish);
}

void runTimed(const Meter::Side& side, Runs& runs)
{
    call(side.prepare);
    const std::uint64_t before = allocations();
    const auto start = Clock::now();
    side.operation();
    const auto end = Clock::now();
    runs.allocations = std::min(runs.allocations, allocations() - before);
    runs.nanoseconds.push_back(
        std::chrono::duration_cast<std::chrono::nanoseconds>(end - start).count());
    call(side.finish);
}

void runCounted(const Meter::Side& side)
{
    CALLGRIND_START_INSTRUMENTATION;
    call(side.prepare);
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    side.operation();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(side.name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
    call(side.finish);
}

} // namespace

bool Meter::countsInstructions() noexcept
{
    return RUNNING_ON_VALGRIND != 0;
}

void Meter::measure(const std::string& name, const Operation& operation, const Operation& prepare,
                    const Operation& finish)
{
    compare({{name, operation, prepare, finish}});
}

void Meter::compare(const std::vector<Side>& sides)
{
    for (int i = 0; i < kWarmRuns; ++i) {
        for (const Side& side : sides)
            runOnce(side);
    }
    if (countsInstructions()) {
        for (const Side& side : sides)
            runCounted(side);
        return;
    }
    std::vector<Runs> runs(sides.size());
    const auto end = Clock::now() + patience * sides.size();
    for (std::size_t n = 0; n < kFewestRuns || (n < kMostRuns && Clock::now() < end); ++n) {
        for (std::size_t i = 0; i < sides.size(); ++i)
            runTimed(sides[i], runs[i]);
    }
    for (std::size_t i = 0; i < sides.size(); ++i)
        std::printf("%s\t%lld\t%llu\n", sides[i].name.c_str(),
                    static_cast<long long>(runs[i].median()),
                    static_cast<unsigned long long>(runs[i].allocations));
    std::fflush(stdout);
}

void Meter::figure(const std::string& name, const char* unit, double value)
{
    char text[64];
    const auto written = std::to_chars(text, text + sizeof text - 1, value);
    *written.ptr = '\0';
    std::printf("%s\t%s\t%s\n", name.c_str(), unit, text);
    std::fflush(stdout);
}

} // namespace bench
