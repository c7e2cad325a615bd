#include "bench/native/Allocations.h"

#include <cstdlib>
#include <new>

// The process's own operator new, which counts. The array and nothrow forms of the library call these two.

namespace {
orv::bench::Allocations counted;
} // namespace

namespace orv::bench {

Allocations allocations() noexcept {
    return counted;
}

} // namespace orv::bench

void* operator new(std::size_t size) {
    ++counted.count;
    counted.bytes += size;
    if (void* memory = std::malloc(size == 0 ? 1 : size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
