#include "erp/host/JsonValues.h"

#include "automation/Records.h"
#include "automation/Text.h"

#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>

namespace orv::erp {

using automation::Collection;
using automation::Dictionary;
using automation::Value;
using Json = nlohmann::ordered_json;

namespace {
Value numberOf(const Json& json) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (json.is_number_unsigned()) {
        const auto whole = json.get<std::uint64_t>();
        if (whole > static_cast<std::uint64_t>(Limits::max()))
            return static_cast<double>(whole);
        return static_cast<std::int32_t>(whole);
    }
    if (json.is_number_integer()) {
        const auto whole = json.get<std::int64_t>();
        if (whole < Limits::min() || whole > Limits::max())
            return static_cast<double>(whole);
        return static_cast<std::int32_t>(whole);
    }
    return json.get<double>();
}
} // namespace

Value valueOf(const Json& json) {
    if (json.is_null())
        return automation::Null{};
    if (json.is_boolean())
        return json.get<bool>();
    if (json.is_number())
        return numberOf(json);
    if (json.is_string())
        return automation::fromUtf8(json.get_ref<const std::string&>());
    if (json.is_object())
        return dictionaryOf(json).object();
    const Collection list = automation::makeCollection();
    for (const Json& item : json)
        list.add(valueOf(item));
    return list.object();
}

Dictionary dictionaryOf(const Json& object) {
    const Dictionary record = automation::makeDictionary();
    for (const auto& [key, value] : object.items())
        record.set(automation::fromUtf8(key), valueOf(value));
    return record;
}

} // namespace orv::erp
