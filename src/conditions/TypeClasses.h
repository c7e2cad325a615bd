#pragma once

#include "metadata/FieldRecord.h"

#include <cstdint>

// Which column type codes count as numbers. The sets differ from step to step on purpose: 8 is checked as a number
// but never null-guarded as one, 501 the other way round.
namespace orv::conditions {

/// Compared as a date, by the ten characters of its "yyyy-mm-dd" text.
constexpr bool isDateType(std::int32_t colType) noexcept {
    return colType == metadata::colType::date;
}

/// Values must be numbers in scalar comparisons, lists and ranges.
constexpr bool isNumericValue(std::int32_t colType) noexcept {
    return colType < 0 || colType == 2 || colType == 4 || colType == 6 || colType == 8 || colType == 9 || colType == 10;
}

/// The column is guarded as "isnull(column,0)" and the value is written as a plain number.
constexpr bool isNumericColumn(std::int32_t colType) noexcept {
    return colType < 0 || colType == 2 || colType == 4 || colType == 6 || colType == 9 || colType == 10 ||
           colType == metadata::colType::raw;
}

/// A range ("BETWEEN") has a meaning.
constexpr bool acceptsBetween(std::int32_t colType) noexcept {
    return isDateType(colType) || isNumericValue(colType);
}

/// A pattern ("LIKE") has none.
constexpr bool refusesLike(std::int32_t colType) noexcept {
    return isDateType(colType) || isNumericValue(colType);
}

} // namespace orv::conditions
