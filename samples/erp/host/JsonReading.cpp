#include "erp/host/JsonReading.h"

#include "automation/AutomationError.h"
#include "automation/Text.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>

namespace orv::erp {

using Json = nlohmann::ordered_json;

void failReading(std::string_view where, std::string_view what) {
    std::string message(where);
    message.append(": ").append(what);
    throw automation::AutomationError(automation::errorNumber::invalidCall, u"ORVErp.Host",
                                      automation::fromUtf8(message));
}

const Json& need(const Json& object, const char* key, std::string_view where) {
    expectObject(object, where);
    const auto found = object.find(key);
    if (found == object.end())
        failReading(where, std::string("\"") + key + "\" is missing");
    return *found;
}

void expectObject(const Json& json, std::string_view where) {
    if (!json.is_object())
        failReading(where, "an object is expected");
}

void expectArray(const Json& json, std::string_view where) {
    if (!json.is_array())
        failReading(where, "a list is expected");
}

int needInteger(const Json& object, const char* key, std::string_view where) {
    const Json& value = need(object, key, where);
    using Limits = std::numeric_limits<std::int32_t>;
    const bool fits = value.is_number_integer() && value.get<std::int64_t>() >= Limits::min() &&
                      value.get<std::int64_t>() <= Limits::max();
    if (!fits)
        failReading(where, std::string("\"") + key + "\" must be a whole number");
    return value.get<int>();
}

std::u16string needText(const Json& object, const char* key, std::string_view where) {
    const Json& value = need(object, key, where);
    if (!value.is_string())
        failReading(where, std::string("\"") + key + "\" must be a text");
    return automation::fromUtf8(value.get_ref<const std::string&>());
}

std::u16string textOr(const Json& object, const char* key, std::string_view where) {
    return object.contains(key) ? needText(object, key, where) : std::u16string();
}

bool flagOr(const Json& object, const char* key, bool fallback, std::string_view where) {
    if (!object.contains(key))
        return fallback;
    if (!object[key].is_boolean())
        failReading(where, std::string("\"") + key + "\" must be true or false");
    return object[key].get<bool>();
}

void readMembers(const Json& object, std::initializer_list<MemberReader> readers, std::string_view where) {
    expectObject(object, where);
    for (const auto& [key, value] : object.items()) {
        const auto reader = std::ranges::find(readers, std::string_view(key), &MemberReader::first);
        if (reader == readers.end())
            failReading(where, "\"" + key + "\" is not known here");
        reader->second(value);
    }
}

} // namespace orv::erp
