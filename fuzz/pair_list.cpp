// Pair lists of schemes and of the user properties: looked up as the plain model looks up; pairs that were appended are
// found again; lists of ten thousand entries.
#include "Input.h"
#include "Models.h"
#include "automation/Coercion.h"
#include "support/PairList.h"
#include "support/PropsString.h"

#include <algorithm>

using namespace orv;

namespace {

/// Units of the longest list that is made: enough for ten thousand pairs of ordinary keys.
constexpr std::size_t longestList = 200'000;
/// Units of the longest key in such a list: searching is not meant for keys as long as lists.
constexpr std::size_t longestKey = 100;

/// A key counts as plain when no list item can be mistaken for it.
bool isPlain(const std::u16string& text) {
    return text.find_first_of(u"=|;") == std::u16string::npos;
}

void checkAppended(const std::vector<std::u16string>& keys, const std::u16string& value, std::size_t copies) {
    std::u16string list;
    std::u16string ofModel;
    for (std::size_t copy = 0; copy < copies; ++copy) {
        for (const std::u16string& key : keys) {
            const auto number = static_cast<std::int32_t>(copy);
            support::appendPair(list, key, value);
            support::appendPair(list, key + u"#", number);
            ofModel += key + u"=" + value + u"|" + key + u"#=" + automation::numberToText(number) + u"|";
        }
    }
    fuzz::requireSame(list, ofModel, "pairs are appended one behind the other");
    for (const std::u16string& key : {keys.front(), keys.back()})
        fuzz::requireSame(support::lookupPair(list, key), fuzz::model::pairValue(list, key, u"|"),
                          "an appended pair is found as the model finds it");
    if (keys.size() == 1 && isPlain(keys[0]) && isPlain(value))
        fuzz::requireSame(support::lookupPair(list, keys[0]), copies == 0 ? std::u16string() : value,
                          "a single key has its value");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::u16string key = input.line();
    const std::u16string list = input.line();
    fuzz::requireSame(support::lookupPair(list, key), fuzz::model::pairValue(list, key, u"|"),
                      "a value of a scheme list");
    const support::PropsString props(list);
    fuzz::requireSame(props.value(key), fuzz::model::pairValue(list, key, u";"), "a value of the user properties");

    constexpr std::size_t copies[] = {1, 0, 2, 300, 1, 2, 3, 4, 5, 6, 7, 8};
    const std::size_t times = copies[input.below(12)];
    const std::u16string value = input.line();
    std::vector<std::u16string> keys{key};
    while (!input.atEnd() && keys.size() < 34)
        keys.push_back(input.line());
    std::size_t length = 0;
    for (std::u16string& one : keys) {
        one.resize(std::min(one.size(), longestKey));
        length += 2 * one.size() + value.size() + 10;
    }
    checkAppended(keys, value, std::min(times, longestList / length));
    return 0;
}
