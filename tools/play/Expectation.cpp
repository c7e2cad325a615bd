#include "play/Expectation.h"

namespace orv::play {

namespace {

void compare(const Json& expected, const Json* found, const std::string& place, std::vector<std::string>& differences) {
    static const Json nothing;
    const Json& actual = found ? *found : nothing;
    if (expected.is_object() && actual.is_object()) {
        for (const auto& [key, entry] : expected.items()) {
            const auto at = actual.find(key);
            compare(entry, at == actual.end() ? nullptr : &*at, place.empty() ? key : place + "." + key, differences);
        }
        return;
    }
    if (expected.is_array() && actual.is_array()) {
        if (expected.size() != actual.size())
            differences.push_back(place + ": expected " + std::to_string(expected.size()) + " items, but found " +
                                  std::to_string(actual.size()) + ": " + actual.dump());
        for (std::size_t i = 0; i < expected.size() && i < actual.size(); ++i)
            compare(expected[i], &actual[i], place + "[" + std::to_string(i) + "]", differences);
        return;
    }
    if (expected != actual)
        differences.push_back(place + ": expected " + expected.dump() + ", but found " +
                              (found ? actual.dump() : "nothing"));
}

} // namespace

std::vector<std::string> differences(const Json& expected, const Json& found) {
    std::vector<std::string> all;
    compare(expected, &found, "", all);
    return all;
}

} // namespace orv::play
