// Counts what a program allocates: stands in front of the C library's own calls.
#include "bench/Meter.hpp"

#include <cstddef>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
}

static std::uint64_t count = 0;

#define IN_FRONT extern "C" __attribute__((visibility("default")))

IN_FRONT void* malloc(std::size_t size)
{
    __atomic_fetch_add(&count, 1, __ATOMIC_RELAXED);
    return __libc_malloc(size);
}

IN_FRONT void* calloc(std::size_t number, std::size_t size)
{
    __atomic_fetch_add(&count, 1, __ATOMIC_RELAXED);
    return __libc_calloc(number, size);
}

IN_FRONT void* realloc(void* block, std::size_t size)
{
    __atomic_fetch_add(&count, 1, __ATOMIC_RELAXED);
    return __libc_realloc(block, size);
}

namespace bench {

std::uint64_t allocations() noexcept
{
    return __atomic_load_n(&count, __ATOMIC_RELAXED);
}

} // namespace bench
