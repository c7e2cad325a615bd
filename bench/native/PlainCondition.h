#pragma once

#include "conditions/ConditionRow.h"

#include <cstddef>
#include <string>
#include <vector>

namespace orv::bench {

enum class ColumnKind { text, number, date };

/// A condition as a program would keep it that knows nothing of grids and dictionaries.
struct PlainCondition {
    std::u16string left;
    std::u16string column;
    ColumnKind kind = ColumnKind::text;
    std::u16string comparison; ///< caption of the comparison in a LargeHost
    std::u16string sqlOperator;
    std::u16string keyword; ///< "" where a value is taken
    std::u16string control; ///< input type: "0" typed, "1" look-up, "2" used as it stands
    std::u16string value;
    std::u16string right;
    std::u16string logic;
};

/// Conditions of every form in turn: scalars, ranges, lists and patterns on texts, numbers and dates, look-up cells,
/// tests for emptiness and ranges around today. `column` names are those of a LargeHost's fields; the last one has no
/// logic word, as the last line of the condition grid.
std::vector<PlainCondition> mixedConditions(std::size_t count);

/// The condition rows that stand for the same conditions.
std::vector<conditions::ConditionRow> conditionRows(const std::vector<PlainCondition>& plain);

/// Straight-line code for the same conditions: looks the operator up, checks the value, writes SQL into `out`. What the
/// row translator is measured against. `today` is days since 30 December 1899. Throws std::invalid_argument for a value
/// that does not fit.
void appendStraight(std::u16string& out, const PlainCondition& condition, double today);

} // namespace orv::bench
