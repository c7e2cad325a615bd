#include "Samples.h"

#include "automation/Calendar.h"

#include <charconv>

namespace orv::conditions::sample {

double day(const std::string& text) {
    const auto number = [&text](std::size_t at, std::size_t count) {
        int value = 0;
        std::from_chars(text.data() + at, text.data() + at + count, value);
        return value;
    };
    return automation::dayNumber({number(0, 4), number(5, 2), number(8, 2)}).value();
}

metadata::FieldRef field(const std::string& caption, const std::string& fieldNameExt) {
    const automation::Dictionary record = automation::makeDictionary();
    record.set(metadata::fieldKey::caption, fromUtf8(caption));
    record.set(metadata::fieldKey::fieldNameExt, fromUtf8(fieldNameExt));
    return std::make_shared<metadata::FieldRecord>(record);
}

CompareEntry typed(const std::string& op, const std::string& ctl, const std::string& dataFieldIndex) {
    CompareEntry entry;
    entry.FOperate = fromUtf8(op);
    entry.FInput = true;
    entry.FInputCtlType = fromUtf8(ctl);
    entry.FDataFieldIndex = fromUtf8(dataFieldIndex);
    return entry;
}

CompareEntry keyword(const std::string& op, const std::string& word, bool input) {
    CompareEntry entry = typed(op, "0");
    entry.FValue = fromUtf8(word);
    entry.FInput = input;
    return entry;
}

ConditionRow row(std::optional<std::int32_t> colType, const CompareEntry& entry, const std::string& value) {
    ConditionRow result = NewConditionRow();
    result.FLeft = u"(";
    result.FFieldKey = u"Key";
    result.FFieldName = u"F";
    result.FColType = colType;
    result.FCompareDct = std::make_shared<CompareEntry>(entry);
    result.FCompareIndex = 1;
    result.FValue = fromUtf8(value);
    result.FRight = u")";
    result.FLogic = u" AND ";
    return result;
}

double FakeSource::date() {
    ++timesAskedToday;
    whileAsked();
    return day(answer(today, u"today"));
}

metadata::FieldRef FakeSource::fieldAt(std::int32_t position) {
    const auto found = fields.find(position);
    if (found == fields.end())
        throw automation::AutomationError::runtime(automation::errorNumber::subscriptOutOfRange);
    return found->second;
}

} // namespace orv::conditions::sample
