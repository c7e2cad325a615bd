#include "play/Expectation.h"

#include <gtest/gtest.h>

namespace orv::play {
namespace {

TEST(Expectation, ComparesWhatIsExpectedAndNamesThePlace) {
    struct Case {
        const char* expected;
        const char* found;
        std::vector<std::string> differences;
    };
    const Case cases[] = {
        {R"({})", R"({"a": 1})", {}},
        {R"({"a": 1})", R"({"b": 2, "a": 1})", {}},
        {R"({"a": 1})", R"({"a": 1.0})", {}},
        {R"({"a": "1"})", R"({"a": 1})", {R"(a: expected "1", but found 1)"}},
        {R"({"a": 1})", R"({"b": 1})", {"a: expected 1, but found nothing"}},
        {R"({"a": null})", R"({"b": 1})", {}},
        {R"({"a": null})", R"({"a": {}})", {"a: expected null, but found {}"}},
        {R"({"a": {"b": {"c": 1}}})", R"({"a": {"b": {"c": 2, "d": 3}}})", {"a.b.c: expected 1, but found 2"}},
        {R"({"a": [1, {"b": 2}]})", R"({"a": [1, {"b": 2, "c": 3}]})", {}},
        {R"({"a": [1, {"b": 2}]})",
         R"({"a": [0, {"b": 3}]})",
         {"a[0]: expected 1, but found 0", "a[1].b: expected 2, but found 3"}},
        {R"({"a": [1]})", R"({"a": [1, 2]})", {"a: expected 1 items, but found 2: [1,2]"}},
        {R"({"a": []})", R"({"a": "x"})", {R"(a: expected [], but found "x")"}},
        {R"({"a": {"b": 1}})", R"({"a": [1]})", {R"(a: expected {"b":1}, but found [1])"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.expected) + " against " + c.found);
        EXPECT_EQ(differences(Json::parse(c.expected), Json::parse(c.found)), c.differences);
    }
}

} // namespace
} // namespace orv::play
