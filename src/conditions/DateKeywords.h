#pragma once

#include "conditions/ColumnExpression.h"
#include "conditions/Today.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orv::conditions {

/// What a comparison stands for that carries a keyword instead of taking a value.
enum class DateKeyword : std::uint8_t {
    none, ///< no keyword, or an unknown one
    isNull,
    notIsNull,
    yesterday,
    today,
    tomorrow,
    lastWeek,
    thisWeek,
    nextWeek,
    lastMonth,
    thisMonth,
    nextMonth,
    todayBefore,
    todayAfter,
};

/// The keyword that a text names, ignoring letter case.
DateKeyword dateKeyword(std::u16string_view text) noexcept;

/// True for the two keywords whose range takes a number of days that the user types.
constexpr bool takesDayCount(DateKeyword keyword) noexcept {
    return keyword == DateKeyword::todayBefore || keyword == DateKeyword::todayAfter;
}

/// True when the range cannot be told without today's date.
constexpr bool needsToday(DateKeyword keyword) noexcept {
    return keyword >= DateKeyword::yesterday;
}

/// The SQL of a keyword comparison: empty / not empty, or a range of whole days relative to today. The operator text
/// brings its own blanks. `days` counts for "TODAYBEFORE" and "TODAYAFTER" only. A range beyond the years 100 to 9999
/// raises the error of the date arithmetic.
std::u16string BuildDateKeywordSql(std::u16string_view columnExpr, std::u16string_view operatorText,
                                   std::u16string_view keyword, std::int32_t days, Today& today);

/// The same, appended to a text. After an error `out` may end with part of it.
void appendDateKeywordSql(std::u16string& out, const ColumnExpression& column, std::u16string_view operatorText,
                          DateKeyword keyword, std::int32_t days, Today& today);

} // namespace orv::conditions
