#include "automation/Views.h"

#include "automation/Coercion.h"
#include "automation/MemberNames.h"

#include <utility>

namespace orv::automation {

Value Dictionary::get(std::u16string_view key) const {
    return automation::get(object_, member::dictionary::value, key);
}

Value Dictionary::getValue(std::u16string_view key, Value fallback) const {
    return call(object_, member::dictionary::getValue, key, std::move(fallback));
}

void Dictionary::set(std::u16string_view key, Value value) const {
    let(object_, member::dictionary::value, key, std::move(value));
}

bool Dictionary::exists(std::u16string_view key) const {
    return toBoolean(call(object_, member::dictionary::exists, key));
}

std::int32_t Dictionary::count() const {
    return toInt32(automation::get(object_, member::dictionary::count));
}

std::vector<std::u16string> Dictionary::keys() const {
    const Collection list(toObject(call(object_, member::dictionary::keys)));
    const std::int32_t count = list.count();
    std::vector<std::u16string> result;
    result.reserve(count > 0 ? static_cast<std::size_t>(count) : 0);
    for (std::int32_t index = 1; index <= count; ++index)
        result.push_back(toText(list.item(index)));
    return result;
}

Dictionary Dictionary::cloneAll() const {
    return Dictionary(toObject(call(object_, member::dictionary::cloneAll)));
}

std::int32_t Collection::count() const {
    return toInt32(get(object_, member::collection::count));
}

Value Collection::item(std::int32_t index) const {
    return get(object_, member::collection::item, index);
}

Dictionary Collection::record(std::int32_t index) const {
    return Dictionary(toObject(item(index)));
}

void Collection::add(Value value) const {
    call(object_, member::collection::add, std::move(value));
}

bool Recordset::eof() const {
    return toBoolean(get(object_, member::recordset::eof));
}

void Recordset::moveNext() const {
    call(object_, member::recordset::moveNext);
}

std::int32_t Recordset::recordCount() const {
    return toInt32(get(object_, member::recordset::recordCount));
}

Value Recordset::field(std::u16string_view name) const {
    const ObjectRef column = toObject(get(object_, member::recordset::fields, name));
    return get(column, member::recordset::value);
}

Value Recordset::field(std::int32_t position) const {
    const ObjectRef column = toObject(get(object_, member::recordset::fields, position));
    return get(column, member::recordset::value);
}

void Recordset::setFilter(std::u16string_view criterion) const {
    let(object_, member::recordset::filter, criterion);
}

} // namespace orv::automation
