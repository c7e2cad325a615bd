#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace orv::bench {

/// Seconds since some moment.
inline double now() noexcept {
    LARGE_INTEGER count;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// The least time in seconds of one call of `function`, over several rounds of `calls` calls each: what the machine did
/// beside it does not count.
template <class Function>
double leastTime(std::size_t rounds, std::size_t calls, Function function) {
    double least = std::numeric_limits<double>::max();
    for (std::size_t round = 0; round < rounds; ++round) {
        const double start = now();
        for (std::size_t call = 0; call < calls; ++call)
            function();
        least = std::min(least, (now() - start) / static_cast<double>(calls));
    }
    return least;
}

} // namespace orv::bench
