#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace orv::bench {

/// Collects the runs of all benchmarks and prints them as one table, with the ratios that count.
class Table final : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    /// Prints what was collected. False when a benchmark failed.
    bool print() const;

  private:
    struct Row {
        double nanoseconds = 0; ///< processor time of a call, the least of all repetitions
        std::map<std::string, double> counters;
        std::string failure;
    };
    const Row* find(const std::string& name) const;
    void printRatios() const;

    std::vector<std::pair<std::string, Row>> rows_; ///< in the order of the runs
};

} // namespace orv::bench
