// One condition as SQL: every operator, keyword, column type and input type with any value, held against the rules
// written once more; an error leaves the text as it was.
#include "Input.h"
#include "Models.h"
#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/LocaleRules.h"
#include "conditions/ConditionSql.h"
#include "conditions/ConditionValue.h"
#include "support/Dates.h"

#include <cmath>
#include <iterator>
#include <optional>

using namespace orv;
using automation::AutomationError;
using conditions::CompareEntry;
using conditions::ConditionRow;
using fuzz::model::trim;

namespace {

/// Error 5 with one of the messages of the conditions.
struct Refused {
    std::u16string message;
};

constexpr const char16_t* notNumeric = u"无效的输入值,请输入数字";
constexpr const char16_t* notDate = u"无效的输入值,请输入日期,格式如:1999/12/25或1999-12-25";
constexpr const char16_t* boundNotDate = u"无效的输入值,请输入正确的日期格式,如:1999/12/25或1999-12-25";
constexpr const char16_t* boundsMissing = u"无效的输入值,请输入两个比较值,中间用'AND'隔开";
constexpr const char16_t* boundsReversed = u"无效的输入值,初始值大于结束值";
constexpr const char16_t* noBetween = u"模版不正确,系统不支持该种数据类型的'Between'语法";
constexpr const char16_t* noLike = u"模版不正确，系统不支持该种数据类型的'Like'语法";

bool oneOf(std::int32_t type, std::initializer_list<std::int32_t> types) {
    for (const std::int32_t known : types)
        if (type == known)
            return true;
    return false;
}
bool countsAsNumber(std::int32_t type) {
    return type < 0 || oneOf(type, {2, 4, 6, 8, 9, 10});
}
bool wrapsAsNumber(std::int32_t type) {
    return type < 0 || oneOf(type, {2, 4, 6, 9, 10, 501});
}

void mustBeNumber(const std::u16string& text) {
    if (!automation::isNumeric(text))
        throw Refused{notNumeric};
}
double dateOf(const std::u16string& text, const char16_t* message) {
    const auto days = automation::localeRules().parseDate(text);
    if (!days)
        throw Refused{message};
    return *days;
}
std::u16string quotedDay(double days) {
    return u"'" + support::FormatDate(std::trunc(days), u"YYYY-MM-DD") + u"'";
}

std::u16string list(const std::u16string& value, std::int32_t type) {
    std::u16string out;
    for (std::size_t n = 1;; ++n) {
        const std::u16string piece = trim(fuzz::model::piece(value, n, u","));
        if (piece.empty())
            break;
        if (countsAsNumber(type)) {
            mustBeNumber(piece);
            out += piece + u",";
        } else if (type == 0) {
            out += quotedDay(dateOf(piece, notDate)) + u",";
        } else {
            out += u"'" + piece + u"',";
        }
    }
    if (out.empty())
        throw Refused{u"无效的过程调用或参数"};
    out.pop_back();
    return u"(" + out + u")";
}

std::u16string range(const std::u16string& value, std::int32_t type) {
    if (!(type < 1 || oneOf(type, {2, 4, 6, 8, 9, 10})))
        throw Refused{noBetween};
    const std::size_t at = fuzz::model::asciiUpper(value).find(u"AND");
    if (at == std::u16string::npos)
        throw Refused{boundsMissing};
    const std::u16string low = trim(value.substr(0, at));
    const std::u16string high = trim(value.substr(at + 3));
    if (type == 0) {
        const double first = dateOf(low, boundNotDate);
        const double last = dateOf(high, boundNotDate);
        if (first > last)
            throw Refused{boundsReversed};
        return quotedDay(first) + u" AND " + quotedDay(last);
    }
    mustBeNumber(low);
    mustBeNumber(high);
    if (automation::Val(low) > automation::Val(high))
        throw Refused{boundsReversed};
    return low + u" AND " + high;
}

std::u16string formatted(const std::u16string& value, std::int32_t type, const CompareEntry& entry) {
    const std::u16string operation = fuzz::model::asciiUpper(trim(entry.FOperate));
    std::u16string out;
    if (operation == u"=" || operation == u"!=" || operation == u"<=" || operation == u">=" || operation == u">" ||
        operation == u"<" || operation == u"<>") {
        if (countsAsNumber(type)) {
            mustBeNumber(trim(value));
            out = trim(value);
        } else if (type == 0) {
            out = value.empty() ? u" '' " : u" " + quotedDay(dateOf(trim(value), notDate)) + u" ";
        } else {
            out = type == 501 ? value : u"'" + value + u"'";
        }
    } else if (operation == u"IN" || operation == u"NOT IN") {
        out = list(value, type);
    } else if (operation == u"BETWEEN") {
        out = range(value, type);
    } else if (operation == u"LIKE" || operation == u"NOT LIKE") {
        if (type < 1 || oneOf(type, {2, 4, 6, 8, 9, 10}))
            throw Refused{noLike};
        out = u"'%" + value + u"%'";
    }
    return u" " + out + u" ";
}

std::u16string typed(const ConditionRow& row, const CompareEntry& entry) {
    const std::int32_t type = *row.FColType;
    const bool differs = trim(entry.FOperate) == u"<>";
    std::u16string column = type == 0 ? u"convert(char(10)," + row.FFieldName + u",120)" : row.FFieldName;
    if (differs)
        column = u"isnull(" + column + u",'')";
    if (entry.FInputCtlType == u"0") {
        const std::u16string value = formatted(trim(row.FValue), type, entry);
        if (wrapsAsNumber(type))
            return u"isnull(" + row.FFieldName + u",0)" + entry.FOperate + u" " +
                   automation::numberToText(automation::Val(value));
        return column + entry.FOperate + value;
    }
    if (entry.FInputCtlType == u"1") {
        const bool keyPart = automation::Val(entry.FDataFieldIndex) == 2;
        const std::u16string value = !keyPart                  ? trim(row.FValue.substr(0, 255))
                                     : row.FValue.size() > 255 ? row.FValue.substr(255)
                                                               : std::u16string();
        if (wrapsAsNumber(type))
            return column + entry.FOperate + u" " + automation::numberToText(automation::Val(value));
        if (!differs)
            return column + entry.FOperate + u" '" + trim(value) + u"' ";
        if (row.FValue.substr(0, 3) == u"...")
            return u" 1<>1 ";
        return u"isnull(" + column + u",'')" + entry.FOperate + u" '" + trim(value) + u"' ";
    }
    return entry.FInputCtlType == u"2" ? column + entry.FOperate + formatted(row.FValue, type, entry)
                                       : std::u16string();
}

std::u16string expected(const ConditionRow& row, const CompareEntry& entry) {
    return row.FLeft + u" " + typed(row, entry) + u" " + row.FRight + u" " + trim(row.FLogic);
}

class Day final : public conditions::Today {
  public:
    explicit Day(double day) : day_(day) {}
    double date() override { return day_; }

  private:
    double day_;
};

constexpr const char16_t* operators[] = {u"=",         u"!=",   u"<>",       u"<",  u"<=",     u">",
                                         u">=",        u"LIKE", u"NOT LIKE", u"IN", u"NOT IN", u"BETWEEN",
                                         u" between ", u" <> ", u"like",     u"?"};
constexpr const char16_t* keywords[] = {u"",          u"ISNULL",    u"NOTISNULL",   u"YESTERDAY",  u"TODAY",
                                        u"TOMORROW",  u"LASTWEEK",  u"THISWEEK",    u"NEXTWEEK",   u"LASTMONTH",
                                        u"THISMONTH", u"NEXTMONTH", u"todaybefore", u"TODAYAFTER", u"else"};
constexpr std::int32_t types[] = {0, 1, 2, 4, 6, 8, 9, 10, 500, 501, -1, 3};
constexpr const char16_t* inputTypes[] = {u"0", u"1", u"2", u"3"};
/// Ordinary days, the ends of months and years, both ends of the calendar.
constexpr double days[] = {45351, 45382, 0, -1, -657434, 2958465, 36585};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    CompareEntry entry;
    entry.FOperate = operators[input.below(std::size(operators))];
    entry.FValue = keywords[input.below(std::size(keywords))];
    entry.FInput = input.flag();
    entry.FInputCtlType = inputTypes[input.below(std::size(inputTypes))];
    entry.FDataFieldIndex = input.flag() ? u"2" : u"1";
    entry.FDataSourceType = std::int32_t{0};
    ConditionRow row = conditions::NewConditionRow();
    row.FColType = types[input.below(std::size(types))];
    Day today(days[input.below(std::size(days))]);
    input.line();
    row.FValue = input.line();
    row.FFieldName = input.line();
    row.FLeft = input.line();
    row.FRight = input.line();
    row.FLogic = input.line();
    row.FCompareDct = std::make_shared<const CompareEntry>(entry);

    const std::u16string before = input.line();
    std::u16string out = before;
    std::optional<AutomationError> failure;
    try {
        conditions::appendConditionSql(out, row, today);
    } catch (const AutomationError& error) {
        failure = error;
        fuzz::requireSame(out, before, "a failure leaves the text as it was");
    }
    const bool dayCount = entry.FValue == u"todaybefore" || entry.FValue == u"TODAYAFTER";
    if (!entry.FInput || dayCount) {
        if (!failure)
            fuzz::require(out.size() >= before.size() + row.FLeft.size() + row.FRight.size(), "brackets stay");
        return 0;
    }
    try {
        const std::u16string sql = expected(row, entry);
        fuzz::require(!failure, "what the rules allow is written");
        fuzz::requireSame(out, before + sql, "a condition is written as the rules say");
    } catch (const Refused& refusal) {
        fuzz::require(failure && failure->number() == automation::errorNumber::invalidCall, "a refusal is error 5");
        fuzz::requireSame(failure->description(), refusal.message, "a refusal's message");
    } catch (const AutomationError& error) {
        fuzz::require(failure && failure->number() == error.number(), "the same error");
    }
    return 0;
}
