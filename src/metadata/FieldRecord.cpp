#include "metadata/FieldRecord.h"

#include "automation/Coercion.h"

#include <algorithm>

namespace orv::metadata {

using automation::Value;

FieldRecord::Entry* FieldRecord::find(FieldKey key) const {
    const auto found = std::ranges::find(known_, key, &Entry::key);
    return found == known_.end() ? nullptr : &*found;
}

const Value& FieldRecord::value(FieldKey key) const {
    if (const Entry* known = find(key))
        return known->value;
    known_.push_back({key, record_.getValue(key, Value())});
    return known_.back().value;
}

std::u16string FieldRecord::text(FieldKey key) const {
    const Value& entry = value(key);
    return automation::isBlank(entry) ? std::u16string() : automation::toText(entry);
}

std::int32_t FieldRecord::number(FieldKey key) const {
    const Value& entry = value(key);
    return automation::isBlank(entry) ? 0 : automation::toInt32(entry);
}

bool FieldRecord::flag(FieldKey key) const {
    const Value& entry = value(key);
    return !automation::isBlank(entry) && automation::toBoolean(entry);
}

void FieldRecord::provide(FieldKey key, const Value& entry) const {
    record_.set(key, entry);
    // Asked for again: the host may have been re-entered while it took the entry.
    if (Entry* known = find(key))
        known->value = entry;
    else
        known_.push_back({key, entry});
}

} // namespace orv::metadata
