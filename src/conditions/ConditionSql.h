#pragma once

#include "conditions/ConditionRow.h"
#include "conditions/Today.h"

#include <string>

namespace orv::conditions {

/// One condition as SQL: brackets, column, operator, value, brackets, and the logic word that leads to the next one.
/// Error 5 with the message for the user when the value does not fit; error 13 when the comparison's data source kind
/// is no number; error 6 for a day count beyond 32 bits.
std::u16string BuildConditionSql(const ConditionRow& row, Today& today);

/// The same, appended to a text; `out` is as before after an error.
void appendConditionSql(std::u16string& out, const ConditionRow& row, Today& today);

/// True when the translation of the row asks for today's date.
bool needsToday(const ConditionRow& row) noexcept;

} // namespace orv::conditions
