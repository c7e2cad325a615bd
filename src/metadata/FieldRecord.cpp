#include "metadata/FieldRecord.h"

#include "automation/Coercion.h"

#include <algorithm>

namespace orv::metadata {

using automation::Value;

namespace {
/// What reads as nothing: an absent entry, Null, or an empty text.
bool isBlank(const Value& value) {
    const auto* text = value.getIf<std::u16string>();
    return value.isEmpty() || value.isNull() || (text != nullptr && text->empty());
}
} // namespace

const Value& FieldRecord::value(std::u16string_view key) const {
    const auto found = std::ranges::find_if(known_, [key](const auto& entry) { return entry.first == key; });
    if (found != known_.end())
        return found->second;
    Value answer = record_.getValue(key, Value());
    return known_.emplace_front(std::u16string(key), std::move(answer)).second;
}

std::u16string FieldRecord::text(std::u16string_view key) const {
    const Value& entry = value(key);
    return isBlank(entry) ? std::u16string() : automation::toText(entry);
}

std::int32_t FieldRecord::number(std::u16string_view key) const {
    const Value& entry = value(key);
    return isBlank(entry) ? 0 : automation::toInt32(entry);
}

bool FieldRecord::flag(std::u16string_view key) const {
    const Value& entry = value(key);
    return !isBlank(entry) && automation::toBoolean(entry);
}

void FieldRecord::provide(std::u16string_view key, const Value& entry) const {
    record_.set(key, entry);
    known_.remove_if([key](const auto& known) { return known.first == key; });
    known_.emplace_front(std::u16string(key), entry);
}

} // namespace orv::metadata
