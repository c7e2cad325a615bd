#include "bench/native/Table.h"

#include "bench/native/Measure.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace orv::bench {

namespace {

/// A ratio that the documentation states, and what it should not exceed.
struct Ratio {
    const char* label;
    const char* name;
    const char* base;
    double goal; ///< 0: none
};

constexpr Ratio ratios[] = {
    {"row translator / straight-line code, 30 rows", "conditions/row translator/30", "conditions/straight-line code/30",
     1.5},
    {"row translator / straight-line code, 1,000 rows", "conditions/row translator/1000",
     "conditions/straight-line code/1000", 1.5},
    {"row translator / straight-line code, 10,000 rows", "conditions/row translator/10000",
     "conditions/straight-line code/10000", 1.5},
    {"GetFilterSql / straight-line code, 30 rows", "conditions/GetFilterSql/30", "conditions/straight-line code/30", 4},
    {"straight-line code / finished pieces, 30 rows", "conditions/straight-line code/30",
     "conditions/finished pieces/30", 0},
};

/// Names of which ten times the fields may cost about ten times the time: caches get colder, nothing else.
constexpr const char* linear[] = {
    "fields/Initialize",       "fields/class-type switch", "fields/InitHideColumns",
    "fields/m_Header, first",  "fields/m_Header, again",   "fields/scheme load",
    "fields/field lists anew", "texts/pair list, write",   "texts/pair list, index",
};
constexpr double linearGoal = 20;

double least(double a, double b) {
    return a == 0 ? b : std::min(a, b);
}

std::string figure(double value) {
    char text[32];
    std::snprintf(text, sizeof text, value >= 100 || value == 0 ? "%.0f" : value >= 10 ? "%.1f" : "%.2f", value);
    return text;
}

} // namespace

void Table::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration)
            continue;
        const std::string name =
            run.run_name.function_name + (run.run_name.args.empty() ? std::string() : "/" + run.run_name.args);
        auto at = std::ranges::find(rows_, name, &std::pair<std::string, Row>::first);
        if (at == rows_.end())
            at = rows_.insert(rows_.end(), {name, Row{}});
        Row& row = at->second;
        if (run.error_occurred) {
            row.failure = run.error_message;
            continue;
        }
        row.nanoseconds = least(row.nanoseconds, run.cpu_accumulated_time / static_cast<double>(run.iterations) * 1e9);
        for (const auto& [counter, value] : run.counters)
            row.counters[counter] = value.value;
    }
}

const Table::Row* Table::find(const std::string& name) const {
    const auto at = std::ranges::find(rows_, name, &std::pair<std::string, Row>::first);
    return at == rows_.end() || at->second.nanoseconds == 0 ? nullptr : &at->second;
}

bool Table::print() const {
    bool failed = false;
    std::printf("%-42s %12s %10s %12s %12s %10s\n", "", "us a call", "ns an item", "bytes a call", "allocs a call",
                "calls/item");
    for (const auto& [name, row] : rows_) {
        if (!row.failure.empty()) {
            std::printf("%-42s FAILED: %s\n", name.c_str(), row.failure.c_str());
            failed = true;
            continue;
        }
        const auto value = [&row](const char* counter) -> std::optional<double> {
            const auto found = row.counters.find(counter);
            return found == row.counters.end() ? std::nullopt : std::optional(found->second);
        };
        const double items = value(counter::items).value_or(1);
        const auto shown = [](std::optional<double> number) { return number ? figure(*number) : std::string("-"); };
        const auto calls = value(counter::calls);
        std::printf("%-42s %12s %10s %12s %12s %10s\n", name.c_str(), figure(row.nanoseconds / 1000).c_str(),
                    figure(row.nanoseconds / items).c_str(), shown(value(counter::bytes)).c_str(),
                    shown(value(counter::allocs)).c_str(),
                    shown(calls ? std::optional(*calls / items) : std::nullopt).c_str());
    }
    printRatios();
    return !failed;
}

void Table::printRatios() const {
    std::printf("\n%-60s %8s %8s\n", "Ratios", "", "goal");
    const auto line = [](const std::string& label, double ratio, double goal) {
        std::printf("%-60s %8s %8s %s\n", label.c_str(), figure(ratio).c_str(),
                    goal > 0 ? ("<= " + figure(goal)).c_str() : "", goal > 0 && ratio > goal ? "over" : "");
    };
    for (const Ratio& ratio : ratios) {
        const Row* row = find(ratio.name);
        const Row* base = find(ratio.base);
        if (row != nullptr && base != nullptr)
            line(ratio.label, row->nanoseconds / base->nanoseconds, ratio.goal);
    }
    for (const char* name : linear) {
        const Row* large = find(std::string(name) + "/10000");
        const Row* small = find(std::string(name) + "/1000");
        if (large != nullptr && small != nullptr)
            line(std::string(name) + ": 10,000 against 1,000", large->nanoseconds / small->nanoseconds, linearGoal);
    }
}

} // namespace orv::bench
