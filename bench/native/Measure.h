#pragma once

#include "bench/native/Allocations.h"

#include <benchmark/benchmark.h>

#include <cstddef>

namespace orv::bench {

/// Names of the counters that the table shows; each is a figure per call of the measured function.
namespace counter {
inline constexpr const char* items = "items";   ///< rows, fields or texts that one call works on
inline constexpr const char* allocs = "allocs"; ///< heap allocations
inline constexpr const char* bytes = "bytes";   ///< bytes of the text that was written or read
inline constexpr const char* calls = "calls";   ///< late-bound calls
} // namespace counter

/// Counts the heap allocations of a benchmark's loop; sections may be left out.
class AllocationCounter {
  public:
    void begin() noexcept { start_ = allocations().count; }
    void end() noexcept { total_ += allocations().count - start_; }
    void report(benchmark::State& state) const {
        state.counters[counter::allocs] =
            static_cast<double>(total_) /
            static_cast<double>(std::max<benchmark::IterationCount>(state.iterations(), 1));
    }

  private:
    std::size_t start_ = 0;
    std::size_t total_ = 0;
};

/// Runs `function` in the benchmark's loop and counts its allocations.
template <class Function>
void measure(benchmark::State& state, std::size_t items, Function function) {
    AllocationCounter counted;
    counted.begin();
    for (auto _ : state)
        function();
    counted.end();
    counted.report(state);
    state.counters[counter::items] = static_cast<double>(items);
}

/// The same, with `prepare` before each call, which does not count.
template <class Prepare, class Function>
void measurePrepared(benchmark::State& state, std::size_t items, Prepare prepare, Function function) {
    AllocationCounter counted;
    for (auto _ : state) {
        state.PauseTiming();
        auto prepared = prepare();
        state.ResumeTiming();
        counted.begin();
        function(*prepared);
        counted.end();
        state.PauseTiming();
        prepared.reset();
        state.ResumeTiming();
    }
    counted.report(state);
    state.counters[counter::items] = static_cast<double>(items);
}

} // namespace orv::bench
