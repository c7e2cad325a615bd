#include "conditions/ConditionRow.h"

#include "automation/Coercion.h"

#include <string_view>

namespace orv::conditions {

using automation::Dictionary;
using automation::Value;

namespace {

std::u16string textOf(const Dictionary& entry, std::u16string_view key) {
    const Value value = entry.getValue(key, Value());
    return automation::isBlank(value) ? std::u16string() : automation::toText(value);
}

} // namespace

CompareEntry CompareEntry::read(const Dictionary& entry) {
    CompareEntry result;
    result.FName = textOf(entry, u"FName");
    result.FOperate = textOf(entry, u"FOperate");
    result.FValue = textOf(entry, u"FValue");
    if (const Value input = entry.getValue(u"FInput", Value()); !automation::isBlank(input))
        result.FInput = automation::toBoolean(input);
    result.FInputCtlType = textOf(entry, u"FInputCtlType");
    result.FDataFieldIndex = textOf(entry, u"FDataFieldIndex");
    if (Value kind = entry.getValue(u"FDataSourceType", Value()); !automation::isBlank(kind))
        result.FDataSourceType = std::move(kind);
    result.FDataSource = textOf(entry, u"FDataSource");
    return result;
}

ConditionRow NewConditionRow() {
    return ConditionRow();
}

} // namespace orv::conditions
