#include "bench/native/Measure.h"
#include "bench/native/PlainCondition.h"

#include "automation/Coercion.h"
#include "automation/LocaleRules.h"
#include "conditions/ConditionText.h"
#include "support/Dates.h"
#include "support/PairList.h"

#include <string>
#include <string_view>
#include <vector>

// Texts that schemes keep, and the recognition of numbers and dates.
namespace orv::bench {
namespace {

std::vector<conditions::ConditionRecord> conditionRecords(std::size_t count) {
    std::vector<conditions::ConditionRecord> records;
    for (const PlainCondition& condition : mixedConditions(count))
        records.push_back({condition.left, condition.column, u"2", condition.value, condition.right, u"并且"});
    return records;
}

void writeConditionText(benchmark::State& state) {
    const auto records = conditionRecords(static_cast<std::size_t>(state.range(0)));
    std::size_t length = 0;
    measure(state, records.size(), [&] {
        const std::u16string text = conditions::formatConditionText(records);
        length = text.size();
        benchmark::DoNotOptimize(text.data());
    });
    state.counters[counter::bytes] = static_cast<double>(length * sizeof(char16_t));
}
BENCHMARK(writeConditionText)->Name("texts/condition text, write")->Arg(30)->Arg(1000);

void readConditionText(benchmark::State& state) {
    const auto records = conditionRecords(static_cast<std::size_t>(state.range(0)));
    const std::u16string text = conditions::formatConditionText(records);
    measure(state, records.size(), [&] { benchmark::DoNotOptimize(conditions::parseConditionText(text).size()); });
    state.counters[counter::bytes] = static_cast<double>(text.size() * sizeof(char16_t));
}
BENCHMARK(readConditionText)->Name("texts/condition text, read")->Arg(30)->Arg(1000);

std::vector<std::u16string> keys(std::int64_t count) {
    std::vector<std::u16string> result;
    for (std::int64_t i = 1; i <= count; ++i)
        result.push_back(u"FField" + automation::numberToText(static_cast<double>(i)));
    return result;
}

void writePairList(benchmark::State& state) {
    const auto fields = keys(state.range(0));
    std::size_t length = 0;
    measure(state, fields.size(), [&] {
        std::u16string list;
        std::int32_t row = 0;
        for (const std::u16string& key : fields)
            support::appendPair(list, key, ++row);
        length = list.size();
        benchmark::DoNotOptimize(list.data());
    });
    state.counters[counter::bytes] = static_cast<double>(length * sizeof(char16_t));
}
BENCHMARK(writePairList)->Name("texts/pair list, write")->Arg(100)->Arg(1000)->Arg(10000);

/// Reads every key of a list by what `begin(list)` gives.
template <class Begin>
void readPairList(benchmark::State& state, Begin begin) {
    const auto fields = keys(state.range(0));
    std::u16string list;
    std::int32_t row = 0;
    for (const std::u16string& key : fields)
        support::appendPair(list, key, ++row);
    measure(state, fields.size(), [&] {
        auto read = begin(list);
        std::size_t found = 0;
        for (const std::u16string& key : fields)
            found += read(key).size();
        benchmark::DoNotOptimize(found);
    });
    state.counters[counter::bytes] = static_cast<double>(list.size() * sizeof(char16_t));
}

void readPairListIndexed(benchmark::State& state) {
    readPairList(state, [](std::u16string_view list) {
        return [index = support::PairIndex(list)](std::u16string_view key) mutable { return index.value(key); };
    });
}
BENCHMARK(readPairListIndexed)->Name("texts/pair list, index")->Arg(100)->Arg(1000)->Arg(10000);

void readPairListSearching(benchmark::State& state) {
    readPairList(state, [](std::u16string_view list) {
        return [list](std::u16string_view key) { return support::lookupPair(list, key); };
    });
}
BENCHMARK(readPairListSearching)->Name("texts/pair list, search")->Arg(100)->Arg(1000)->Arg(10000);

/// Calls `read` for each of some texts.
template <class Read>
void readTexts(benchmark::State& state, const std::vector<std::u16string>& texts, Read read) {
    measure(state, texts.size(), [&] {
        for (const std::u16string& text : texts)
            benchmark::DoNotOptimize(read(std::u16string_view(text)));
    });
}

const std::vector<std::u16string> numbers{u"7", u"1250.5", u"-17", u"1000000", u"0.25"};
const std::vector<std::u16string> oddNumbers{u" 7 ", u"1,250.50", u"¥3", u"１２", u"(5)", u"1e3"};
const std::vector<std::u16string> dates{u"2024-02-05", u"1999/12/25", u"2024-2-5", u"1999/1/3"};
const std::vector<std::u16string> oddDates{u"2024年2月5日", u"2024-02-05 08:30", u"5/2/2024", u"2-5"};
const std::vector<std::u16string> words{u"上海分公司", u"abc", u"", u"12a"};

void isNumeric(benchmark::State& state, const std::vector<std::u16string>* texts) {
    readTexts(state, *texts, [](std::u16string_view text) { return automation::isNumeric(text); });
}
BENCHMARK_CAPTURE(isNumeric, plain, &numbers)->Name("recognition/plain numbers");
BENCHMARK_CAPTURE(isNumeric, odd, &oddNumbers)->Name("recognition/other numbers");
BENCHMARK_CAPTURE(isNumeric, words, &words)->Name("recognition/words as numbers");

void isDate(benchmark::State& state, const std::vector<std::u16string>* texts) {
    readTexts(state, *texts, [](std::u16string_view text) { return automation::isDate(text); });
}
BENCHMARK_CAPTURE(isDate, plain, &dates)->Name("recognition/plain dates");
BENCHMARK_CAPTURE(isDate, odd, &oddDates)->Name("recognition/other dates");
BENCHMARK_CAPTURE(isDate, words, &words)->Name("recognition/words as dates");

void val(benchmark::State& state) {
    readTexts(state, numbers, [](std::u16string_view text) { return automation::Val(text); });
}
BENCHMARK(val)->Name("recognition/Val of numbers");

void numberText(benchmark::State& state) {
    const std::vector<double> values{7, 1250.5, -17, 1e6, 0.25};
    measure(state, values.size(), [&] {
        for (const double value : values)
            benchmark::DoNotOptimize(automation::numberToText(value));
    });
}
BENCHMARK(numberText)->Name("recognition/text of a number");

void dateText(benchmark::State& state) {
    std::u16string text;
    measure(state, 1, [&] {
        text.clear();
        support::appendDate(text, 45351, u"YYYY-MM-DD");
        benchmark::DoNotOptimize(text.data());
    });
}
BENCHMARK(dateText)->Name("recognition/text of a date");

} // namespace
} // namespace orv::bench
