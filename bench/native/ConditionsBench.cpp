#include "bench/native/LoadedControl.h"
#include "bench/native/Measure.h"
#include "conditions/ConditionSql.h"

#include <stdexcept>

// The filter text: the row translator and GetFilterSql against straight-line code for the same conditions.
namespace orv::bench {
namespace {

class Fixed final : public conditions::Today {
  public:
    double date() override { return largeHostToday; }
};

constexpr std::size_t gridLines = 30;

std::u16string straightText(const std::vector<PlainCondition>& plain) {
    std::u16string text;
    for (const PlainCondition& condition : plain) {
        appendStraight(text, condition, largeHostToday);
        text += u"\r\n";
    }
    return text;
}

/// The finished pieces of each condition, appended one by one: what no translation can go below.
void appendFinishedPieces(benchmark::State& state) {
    const auto plain = mixedConditions(static_cast<std::size_t>(state.range(0)));
    std::vector<std::vector<std::u16string>> pieces;
    for (const PlainCondition& condition : plain) {
        std::u16string whole;
        appendStraight(whole, condition, largeHostToday);
        whole += u"\r\n";
        auto& parts = pieces.emplace_back();
        constexpr std::size_t piece = 8;
        for (std::size_t at = 0; at < whole.size(); at += piece)
            parts.push_back(whole.substr(at, piece));
    }
    std::u16string text;
    measure(state, plain.size(), [&] {
        text.clear();
        for (const auto& parts : pieces)
            for (const std::u16string& part : parts)
                text += part;
        benchmark::DoNotOptimize(text.data());
    });
    state.counters[counter::bytes] = static_cast<double>(text.size() * sizeof(char16_t));
}
BENCHMARK(appendFinishedPieces)->Name("conditions/finished pieces")->Arg(gridLines)->Arg(1000)->Arg(10000);

void straight(benchmark::State& state) {
    const auto plain = mixedConditions(static_cast<std::size_t>(state.range(0)));
    std::u16string text;
    measure(state, plain.size(), [&] {
        text.clear();
        for (const PlainCondition& condition : plain) {
            appendStraight(text, condition, largeHostToday);
            text += u"\r\n";
        }
        benchmark::DoNotOptimize(text.data());
    });
    state.counters[counter::bytes] = static_cast<double>(text.size() * sizeof(char16_t));
}
BENCHMARK(straight)->Name("conditions/straight-line code")->Arg(gridLines)->Arg(1000)->Arg(10000);

void translator(benchmark::State& state) {
    const auto plain = mixedConditions(static_cast<std::size_t>(state.range(0)));
    const auto rows = conditionRows(plain);
    Fixed today;
    std::u16string text;
    measure(state, rows.size(), [&] {
        text.clear();
        for (const conditions::ConditionRow& row : rows) {
            conditions::appendConditionSql(text, row, today);
            text += u"\r\n";
        }
        benchmark::DoNotOptimize(text.data());
    });
    if (text != straightText(plain))
        throw std::runtime_error("the row translator writes another text than the straight-line code");
    state.counters[counter::bytes] = static_cast<double>(text.size() * sizeof(char16_t));
}
BENCHMARK(translator)->Name("conditions/row translator")->Arg(gridLines)->Arg(1000)->Arg(10000);

void getFilterSql(benchmark::State& state) {
    const auto plain = mixedConditions(gridLines);
    LoadedControl control(100);
    control.enter(plain);
    std::u16string text;
    control.filter.GetFilterSql(text, true); // the rows' dictionaries are read
    if (text != u" (" + straightText(plain) + u") ")
        throw std::runtime_error("GetFilterSql writes another text than the straight-line code");
    control.host.resetCalls();
    measure(state, gridLines, [&] {
        text.clear();
        control.filter.GetFilterSql(text, true);
        benchmark::DoNotOptimize(text.data());
    });
    state.counters[counter::bytes] = static_cast<double>(text.size() * sizeof(char16_t));
    state.counters[counter::calls] =
        static_cast<double>(control.host.calls()) / static_cast<double>(state.iterations());
}
BENCHMARK(getFilterSql)->Name("conditions/GetFilterSql")->Arg(gridLines);

} // namespace
} // namespace orv::bench
