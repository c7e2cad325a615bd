#pragma once

#include "automation/Object.h"

#include <cstdint>
#include <string>

namespace orv::erp {

/// One line of conditions by its captions; "" leaves a cell alone.
struct ConditionTexts {
    std::u16string left, field, compare, value, right, logic;
};

/// Fills a line of the condition grid of a filter control through its private automation interface, doing as a user
/// would: enter a cell, choose from its list by caption, or type. Line 0 is the first one without a field. A value goes
/// to the list where it is an item there, and into two cells where date and time are apart.
///
/// AutomationError 13 when `filter` is no filter control, 5 (it names the cell) when the control refuses an action.
void fillConditionRow(const automation::ObjectRef& filter, std::int32_t line, const ConditionTexts& texts);

} // namespace orv::erp
