#include "memory/Allocations.h"

#include <cstddef>
#include <cstdlib>
#include <new>

namespace orv::memory {

Allocations& allocations() noexcept {
    static constinit Allocations state;
    return state;
}

namespace {

bool mustFail() noexcept {
    Allocations& state = allocations();
    if (!state.armed || (state.pausedBy != nullptr && *state.pausedBy != 0))
        return false;
    return ++state.count == state.failAt;
}

} // namespace
} // namespace orv::memory

void* operator new(std::size_t size) {
    void* block = orv::memory::mustFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (block == nullptr)
        throw std::bad_alloc();
    return block;
}

// Algorithms that do without a buffer where there is none ask in this form.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return orv::memory::mustFail() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
