#pragma once

#include <cstddef>

namespace orv::bench {

/// Heap allocations of the process so far: calls of operator new and the bytes asked for.
struct Allocations {
    std::size_t count = 0;
    std::size_t bytes = 0;
};

Allocations allocations() noexcept;

} // namespace orv::bench
