#pragma once

#include "conditions/ConditionRow.h"
#include "ui/Spread.h"

#include <string>
#include <string_view>
#include <vector>

namespace orv::conditions {

/// Columns of the condition grid.
namespace gridColumn {
inline constexpr int left = 1;
inline constexpr int field = 2;
inline constexpr int comparison = 3;
inline constexpr int value = 4;
inline constexpr int valueTime = 5; ///< part of the value area: the time of a date-time
inline constexpr int valueEnd = 6;
inline constexpr int right = 7;
inline constexpr int logic = 8;
} // namespace gridColumn

/// True when any cell of a line of `vsFilter` holds at least one character.
bool IsFilterRowUsed(const ui::Spread& vsFilter, int gridRow);

/// Reads brackets, value and logic of every line into the line's row. Rows that are missing are made up to the last
/// used line; blank lines beyond have none. The last grid line's logic stays what it was.
void readRows(const ui::Spread& vsFilter, std::vector<ConditionRow>& rows);

/// The value of a date cell (MMDDYYYY as stored) as "yyyy-mm-dd"; any other text stays as it is.
std::u16string dateValue(std::u16string_view dateCell);

/// The value of a date cell and the time cell (HHMMSS as stored) next to it as "yyyy-mm-dd hh:mm:ss". An empty time is
/// midnight; without a date there is no value.
std::u16string dateTimeValue(std::u16string_view dateCell, std::u16string_view timeCell);

} // namespace orv::conditions
