#include "erp/host/ClassTypeTables.h"

#include "automation/Coercion.h"
#include "automation/Records.h"

#include <map>

namespace orv::erp {

using automation::Collection;
using automation::Dictionary;
using automation::ObjectRef;
using automation::Value;

namespace {

/// A copy of the record with everything that it does not say taken from the defaults.
Dictionary withDefaults(const Dictionary& record, const Dictionary& defaults) {
    const Dictionary copy = record.cloneAll();
    if (defaults)
        for (const auto& key : defaults.keys())
            if (!copy.exists(key))
                copy.set(key, defaults.get(key));
    return copy;
}

Value copyOf(const Value& value) {
    const auto* object = value.getIf<ObjectRef>();
    const bool isRecord = object != nullptr && *object && (*object)->typeName() == u"Dictionary";
    return isRecord ? Value(Dictionary(*object).cloneAll().object()) : value;
}

Value entryOf(const Dictionary& field, const Dictionary& defaults, std::u16string_view key, Value otherwise) {
    if (!field.exists(key) && defaults)
        return defaults.getValue(key, std::move(otherwise));
    return field.getValue(key, std::move(otherwise));
}

} // namespace

Collection makeSelectList(const ClassTypeDescription& type, const Dictionary& fieldDefaults) {
    const Collection list = automation::makeCollection();
    for (const Dictionary& given : type.selectList)
        list.add(given.cloneAll().object());
    if (!type.selectList.empty())
        return list;
    for (const Dictionary& field : type.fields) {
        const Dictionary item = automation::makeDictionary();
        item.set(u"Fkey", field.get(u"FKey"));
        item.set(u"FVisible", entryOf(field, fieldDefaults, u"FVisible", true));
        item.set(u"Decimal", entryOf(field, fieldDefaults, u"Decimal", std::int32_t{0}));
        item.set(u"FMustGet", entryOf(field, fieldDefaults, u"FMustGet", std::int32_t{0}));
        item.set(u"HaveSel", false);
        list.add(item.object());
    }
    return list;
}

Dictionary makeTableInfo(const ClassTypeDescription& type, const Dictionary& fieldDefaults) {
    const Dictionary table = automation::makeDictionary();
    std::map<std::u16string, Collection> pages;
    for (const Dictionary& field : type.fields) {
        const Dictionary record = withDefaults(field, fieldDefaults);
        table.set(automation::toText(record.get(u"FKey")), record.object());
        auto& keys = pages[automation::toText(record.getValue(u"FPage", std::int32_t{1}))];
        if (!keys)
            keys = automation::makeCollection();
        keys.add(record.get(u"FKey"));
    }
    const auto count = static_cast<std::int32_t>(type.pages.size());
    table.set(u"PageCount", count);
    for (std::int32_t number = 1; number <= count; ++number) {
        const std::u16string text = automation::toText(number);
        const auto found = pages.find(text);
        const Collection keys = found == pages.end() ? automation::makeCollection() : found->second;
        table.set(u"Page" + text, keys.object());
    }
    for (const auto& [key, value] : type.tableInfo)
        table.set(key, copyOf(value));
    return table;
}

Collection makeClassTypeEntry(const ClassTypeDescription& type) {
    const Collection list = automation::makeCollection();
    for (const Dictionary& page : type.pages)
        list.add(page.cloneAll().object());
    return list;
}

} // namespace orv::erp
