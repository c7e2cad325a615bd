#include "bench/native/LoadedControl.h"
#include "bench/native/Measure.h"

#include "automation/Coercion.h"
#include "automation/Records.h"
#include "conditions/ConditionText.h"
#include "conditions/GridRows.h"
#include "sortcols/ColumnGrid.h"
#include "support/PairList.h"

#include <memory>

// Class types of many fields: loading, field lists, header build, schemes.
namespace orv::bench {
namespace {

constexpr std::int64_t fieldCounts[] = {100, 1000, 10000};

void withFieldCounts(benchmark::internal::Benchmark* benchmark) {
    for (const std::int64_t count : fieldCounts)
        benchmark->Arg(count);
    benchmark->Unit(benchmark::kMicrosecond);
}

std::int32_t fieldsOf(const benchmark::State& state) {
    return static_cast<std::int32_t>(state.range(0));
}

/// Measures `function` on a control of its own for each call, and counts the late-bound calls of one. `makeControl`
/// makes the control.
template <class Make, class Function>
void onFreshControl(benchmark::State& state, Make makeControl, Function function) {
    const auto make = [&] {
        auto control = makeControl();
        control->host.resetCalls();
        return control;
    };
    std::size_t calls = 0;
    measurePrepared(state, static_cast<std::size_t>(state.range(0)), make, [&](auto& control) {
        function(control);
        calls = control.host.calls();
    });
    state.counters[counter::calls] = static_cast<double>(calls);
}

/// Measures `function` on one control again and again, after a first call that reads what it needs of the host.
template <class Function>
void onOneControl(benchmark::State& state, Function function) {
    LoadedControl control(fieldsOf(state));
    function(control);
    control.host.resetCalls();
    measure(state, static_cast<std::size_t>(state.range(0)), [&] { function(control); });
    state.counters[counter::calls] =
        static_cast<double>(control.host.calls()) / static_cast<double>(state.iterations());
}

/// Measures what leaves nothing behind in the host, which is then the same for all calls: the memory of a thousand
/// records that were freed a moment ago is no part of the figure.
template <class Control, class Function>
void onSharedHost(benchmark::State& state, Function function) {
    const auto host = std::make_shared<LargeHost>(fieldsOf(state));
    onFreshControl(
        state, [&] { return std::make_unique<Control>(host); }, function);
}

/// A control that has been told of nothing yet.
struct UnloadedControl {
    explicit UnloadedControl(std::shared_ptr<LargeHost> used) : sharedHost(std::move(used)) {}
    const std::shared_ptr<LargeHost> sharedHost;
    LargeHost& host = *sharedHost;
    automation::ObjectRef service = host.dataService(firstLargeClassType);
    SilentPrompts prompts;
    control::Filter filter{host, prompts};
};

void initialize(benchmark::State& state) {
    onSharedHost<UnloadedControl>(state, [&](UnloadedControl& unloaded) {
        unloaded.filter.put_DataSrv(unloaded.service);
        unloaded.filter.put_SetSelectPageList(u",1*,2,");
        if (!unloaded.filter.Initialize())
            state.SkipWithError("Initialize failed");
    });
}
BENCHMARK(initialize)->Name("fields/Initialize")->Apply(withFieldCounts);

void switchClassType(benchmark::State& state) {
    onSharedHost<LoadedControl>(state, [](LoadedControl& control) {
        ui::ComboBox& box = control.filter.controls().cboClassType;
        box.setListIndex(box.listIndex() == 0 ? 1 : 0);
    });
}
BENCHMARK(switchClassType)->Name("fields/class-type switch")->Apply(withFieldCounts);

void initHideColumns(benchmark::State& state) {
    onOneControl(state, [](LoadedControl& control) { control.filter.InitHideColumns(); });
}
BENCHMARK(initHideColumns)->Name("fields/InitHideColumns")->Apply(withFieldCounts);

void firstHeader(benchmark::State& state) {
    // The first build of a host's life: it leaves value lists in the records.
    onFreshControl(
        state, [&] { return std::make_unique<LoadedControl>(fieldsOf(state)); },
        [](LoadedControl& control) { benchmark::DoNotOptimize(control.filter.get_m_Header()); });
}
BENCHMARK(firstHeader)->Name("fields/m_Header, first")->Apply(withFieldCounts);

void nextHeader(benchmark::State& state) {
    onOneControl(state, [](LoadedControl& control) { benchmark::DoNotOptimize(control.filter.get_m_Header()); });
}
BENCHMARK(nextHeader)->Name("fields/m_Header, again")->Apply(withFieldCounts);

/// What a scheme keeps of 30 conditions and of settings for every column, these in another order than the catalogue's.
automation::Dictionary fullScheme(std::int32_t fields) {
    LoadedControl source(fields);
    const auto plain = mixedConditions(30);
    source.enter(plain);
    const ui::Spread& grid = source.filter.controls().vsFilter;
    namespace column = conditions::gridColumn;
    std::vector<conditions::ConditionRecord> records;
    for (int row = 1; row <= 30; ++row) {
        const PlainCondition& condition = plain[static_cast<std::size_t>(row - 1)];
        records.push_back({condition.left, condition.column.substr(condition.column.find(u'.') + 1),
                           automation::numberToText(grid.comboSelection(column::comparison, row)), condition.value,
                           condition.right, grid.text(column::logic, row)});
    }
    sortcols::ColumnLists lists;
    for (std::int32_t i = 1; i <= fields; ++i) {
        const std::u16string key = largeFieldKey(i);
        support::appendPair(lists.ColWidth, key, std::int32_t{1000 + i % 7});
        support::appendPair(lists.ColHide, key, std::int32_t{i % 3 == 0 ? 0 : 1});
        support::appendPair(lists.ColIndex, key, fields - i + 1);
    }
    const automation::Dictionary entry = automation::makeDictionary();
    entry.set(u"Relation", conditions::formatConditionText(records));
    entry.set(u"OrderBy", u"FField1=1|FField2=0|");
    entry.set(u"ColWidth", lists.ColWidth);
    entry.set(u"ColHide", lists.ColHide);
    entry.set(u"ColIndex", lists.ColIndex);
    entry.set(u"SelPage", u",1*,2,");
    return entry;
}

void loadScheme(benchmark::State& state) {
    const automation::Dictionary entry = fullScheme(fieldsOf(state));
    onOneControl(state, [&](LoadedControl& control) {
        if (!control.filter.RefreshProfile(entry))
            state.SkipWithError("RefreshProfile failed");
    });
}
BENCHMARK(loadScheme)->Name("fields/scheme load")->Apply(withFieldCounts);

void emptyScheme(benchmark::State& state) {
    const automation::Dictionary entry = automation::makeDictionary();
    onOneControl(state, [&](LoadedControl& control) {
        if (!control.filter.RefreshProfile(entry))
            state.SkipWithError("RefreshProfile failed");
    });
}
BENCHMARK(emptyScheme)->Name("fields/field lists anew")->Apply(withFieldCounts);

} // namespace
} // namespace orv::bench
