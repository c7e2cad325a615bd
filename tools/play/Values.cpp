#include "play/Values.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Text.h"
#include "play/DateText.h"
#include "play/ScenarioError.h"

#include <cmath>
#include <limits>

namespace orv::play {

namespace {

using automation::Value;

// Records of the host may refer to each other in a circle; no sound one is nested as deep as this.
constexpr int deepestNesting = 16;

Value numberValue(const Json& json) {
    const double number = json.get<double>();
    constexpr double lowest = std::numeric_limits<std::int32_t>::min();
    constexpr double highest = std::numeric_limits<std::int32_t>::max();
    if (json.is_number_integer() && number >= lowest && number <= highest)
        return json.get<std::int32_t>();
    return number;
}

/// Whole numbers are written without a fraction, however the value holds them.
Json numberJson(double number) {
    constexpr double largestExact = 9007199254740992.0;
    if (std::trunc(number) == number && std::abs(number) < largestExact)
        return static_cast<std::int64_t>(number);
    return number;
}

Json objectJson(const automation::ObjectRef& object, int nesting);

Json json(const Value& value, int nesting) {
    struct Writer {
        const Value& value;
        int nesting;
        Json operator()(automation::Empty) const { return nullptr; }
        Json operator()(automation::Null) const { return nullptr; }
        Json operator()(automation::Missing) const { return nullptr; }
        Json operator()(bool v) const { return v; }
        Json operator()(std::int16_t v) const { return v; }
        Json operator()(std::int32_t v) const { return v; }
        Json operator()(double v) const { return numberJson(v); }
        Json operator()(automation::Currency) const { return numberJson(automation::toNumber(value)); }
        Json operator()(const automation::Decimal&) const { return numberJson(automation::toNumber(value)); }
        Json operator()(automation::Date v) const { return dateText(v); }
        Json operator()(const std::u16string& v) const { return automation::toUtf8(v); }
        Json operator()(const automation::ObjectRef& v) const { return objectJson(v, nesting); }
        Json operator()(automation::ErrorCode v) const { return Json{{"errorCode", v.code}}; }
    };
    return std::visit(Writer{value, nesting}, value.storage());
}

Json objectJson(const automation::ObjectRef& object, int nesting) {
    if (!object)
        return nullptr;
    if (nesting >= deepestNesting)
        throw ScenarioError("a record refers to itself and cannot be written out");
    if (object->typeName() == u"Dictionary") {
        Json entries = Json::object();
        const automation::Dictionary dictionary(object);
        for (const std::u16string& key : dictionary.keys())
            entries[automation::toUtf8(key)] = json(dictionary.get(key), nesting + 1);
        return entries;
    }
    if (object->typeName() == u"Collection") {
        Json items = Json::array();
        const automation::Collection collection(object);
        for (std::int32_t i = 1, count = collection.count(); i <= count; ++i)
            items.push_back(json(collection.item(i), nesting + 1));
        return items;
    }
    return "<" + automation::toUtf8(object->typeName()) + ">";
}

} // namespace

Value toValue(const Json& json, automation::ObjectFactory& factory) {
    switch (json.type()) {
    case Json::value_t::boolean:
        return json.get<bool>();
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned:
    case Json::value_t::number_float:
        return numberValue(json);
    case Json::value_t::string:
        return automation::fromUtf8(json.get_ref<const std::string&>());
    case Json::value_t::object:
        return toDictionary(json, factory).object();
    case Json::value_t::array: {
        const automation::Collection collection = automation::newCollection(factory);
        for (const Json& item : json)
            collection.add(toValue(item, factory));
        return collection.object();
    }
    default:
        return automation::Null{};
    }
}

automation::Dictionary toDictionary(const Json& object, automation::ObjectFactory& factory) {
    const automation::Dictionary dictionary = automation::newRecord(factory);
    for (const auto& [key, entry] : object.items())
        dictionary.set(automation::fromUtf8(key), toValue(entry, factory));
    return dictionary;
}

Json toJson(const Value& value) {
    return json(value, 0);
}

} // namespace orv::play
