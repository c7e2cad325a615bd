#include "erp/host/DisplayText.h"

#include "automation/Calendar.h"
#include "automation/Coercion.h"
#include "automation/Text.h"

#include <array>
#include <cstdio>

namespace orv::erp {

std::u16string displayText(const automation::Value& value) {
    if (value.isNull())
        return {};
    if (const auto* flag = value.getIf<bool>())
        return *flag ? u"是" : u"否";
    const auto* date = value.getIf<automation::Date>();
    if (!date)
        return automation::toText(value);
    const automation::Moment moment = automation::momentOf(date->days);
    const auto& [day, time] = moment;
    std::array<char, 48> text{};
    const bool hasTime = time != automation::ClockTime{};
    std::snprintf(text.data(), text.size(), hasTime ? "%04d-%02d-%02d %02d:%02d:%02d" : "%04d-%02d-%02d", day.year,
                  day.month, day.day, time.hour, time.minute, time.second);
    return automation::fromUtf8(text.data());
}

std::u16string entryText(const automation::Dictionary& record, std::u16string_view key) {
    const automation::Value value = record.getValue(key, std::u16string());
    return value.isNull() ? std::u16string() : automation::toText(value);
}

} // namespace orv::erp
