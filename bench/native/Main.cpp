#include "bench/native/Table.h"

#include <cstdio>
#include <exception>

// Runs the benchmarks (the options are Google Benchmark's) and prints one table of figures and ratios.
int main(int argc, char** argv) try {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    orv::bench::Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return table.print() ? 0 : 1;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
