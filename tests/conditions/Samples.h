#pragma once

#include "automation/AutomationError.h"
#include "automation/Records.h"
#include "automation/Text.h"
#include "conditions/ConditionRow.h"
#include "conditions/FilterSqlSource.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <optional>
#include <string>

// What the tests of the conditions are made of. Texts stand as UTF-8 in the tests, so that a failure can be read.
namespace orv::conditions::sample {

using automation::fromUtf8;
using automation::toUtf8;

/// What a call gives, or "error n: description" when it raises one.
template <class Call>
std::string outcome(Call call) {
    try {
        return toUtf8(call());
    } catch (const automation::AutomationError& error) {
        return error.what();
    }
}

/// Days since 30 December 1899 of a "yyyy-mm-dd" text.
double day(const std::string& text);

metadata::FieldRef field(const std::string& caption, const std::string& fieldNameExt);

/// A comparison whose value the user types, of input type `ctl`.
CompareEntry typed(const std::string& op, const std::string& ctl, const std::string& dataFieldIndex = "");
/// A comparison by keyword.
CompareEntry keyword(const std::string& op, const std::string& word, bool input = false);

/// A row "( column F, comparison, value ) AND".
ConditionRow row(std::optional<std::int32_t> colType, const CompareEntry& entry, const std::string& value);

/// A control that answers what it was told to; any other question fails.
class FakeSource final : public FilterSqlSource {
  public:
    std::optional<std::string> today;
    std::optional<CurrentPeriod> period;
    std::optional<std::int32_t> wageClass;
    std::optional<bool> isTypeList;
    std::map<std::int32_t, metadata::FieldRef> fields;
    std::function<void()> whileAsked = [] {}; ///< what the host does before it tells the date
    int timesAskedToday = 0;

    double date() override;
    CurrentPeriod currentPeriod() override { return answer(period, u"current period"); }
    std::int32_t wageClassId() override { return answer(wageClass, u"wage class"); }
    bool typeList() override { return answer(isTypeList, u"TypeList"); }
    metadata::FieldRef fieldAt(std::int32_t position) override;

  private:
    template <class T>
    static T answer(const std::optional<T>& known, const char16_t* question) {
        if (!known)
            throw automation::AutomationError(4711, u"host", question);
        return *known;
    }
};

} // namespace orv::conditions::sample
