#pragma once

#include "conditions/ConditionRow.h"

#include <string>
#include <string_view>

namespace orv::conditions {

/// Checks a typed value against the operator and the row's column type, and writes it as SQL, one blank before and
/// one after. Texts are quoted, not escaped. Error 5 with the message for the user when the value does not fit.
std::u16string FormatConditionValue(std::u16string_view value, const ConditionRow& row, const CompareEntry& entry);

/// The same, appended to a text. After an error `out` may end with part of the value.
void appendConditionValue(std::u16string& out, std::u16string_view value, const ConditionRow& row,
                          const CompareEntry& entry);

} // namespace orv::conditions
