#include "automation/LocaleRules.h"

#include "automation/Calendar.h"
#include "automation/NumberText.h"
#include "automation/portable/DateReader.h"
#include "automation/portable/NumberReader.h"

#include <ctime>

namespace orv::automation {

namespace {

int currentYear() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_year + 1900;
}

void appendTwoDigits(std::u16string& out, int number) {
    out += static_cast<char16_t>(u'0' + number / 10);
    out += static_cast<char16_t>(u'0' + number % 10);
}

class ChineseRules final : public LocaleRules {
  public:
    std::optional<double> parseNumber(std::u16string_view text) const override { return readNumber(text); }
    std::optional<double> parseDate(std::u16string_view text) const override { return readDate(text, currentYear); }

    std::u16string dateText(double days) const override {
        const Moment moment = momentOf(days);
        const bool hasDay = moment.date != CivilDate{};
        const bool hasTime = moment.time != ClockTime{};
        std::u16string text;
        if (hasDay) {
            appendInteger(text, moment.date.year);
            text += u'/';
            appendInteger(text, moment.date.month);
            text += u'/';
            appendInteger(text, moment.date.day);
        }
        if (hasTime || !hasDay) {
            if (hasDay)
                text += u' ';
            appendInteger(text, moment.time.hour);
            text += u':';
            appendTwoDigits(text, moment.time.minute);
            text += u':';
            appendTwoDigits(text, moment.time.second);
        }
        return text;
    }
};

} // namespace

const LocaleRules& localeRules() {
    return chineseRules();
}

const LocaleRules& chineseRules() {
    static const ChineseRules rules;
    return rules;
}

} // namespace orv::automation
