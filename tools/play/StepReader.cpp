#include "play/StepReader.h"

#include "automation/Text.h"
#include "play/ScenarioError.h"

#include <limits>

namespace orv::play {

namespace {

const Json& entry(const Json& object, const char* key, bool (*fits)(const Json&), std::string_view kind) {
    const auto found = object.find(key);
    if (found == object.end() || !fits(*found))
        throw ScenarioError("\"" + std::string(key) + "\" must be " + std::string(kind));
    return *found;
}

} // namespace

bool has(const Json& object, const char* key) {
    return object.contains(key);
}

const std::string& utf8Of(const Json& object, const char* key) {
    return entry(
               object, key, [](const Json& j) { return j.is_string(); }, "a text")
        .get_ref<const std::string&>();
}

std::u16string textOf(const Json& object, const char* key) {
    return automation::fromUtf8(utf8Of(object, key));
}

int numberOf(const Json& object, const char* key) {
    const auto fits = [](const Json& j) {
        return j.is_number_integer() && j.get<double>() >= std::numeric_limits<int>::min() &&
               j.get<double>() <= std::numeric_limits<int>::max();
    };
    return entry(object, key, fits, "a whole number").get<int>();
}

bool flagOf(const Json& object, const char* key) {
    return entry(
               object, key, [](const Json& j) { return j.is_boolean(); }, "true or false")
        .get<bool>();
}

const Json& objectOf(const Json& object, const char* key) {
    return entry(
        object, key, [](const Json& j) { return j.is_object(); }, "an object");
}

} // namespace orv::play
