#pragma once

#include "automation/Value.h"

#include <string>

// Exact texts and nearest Doubles of the fixed-point contents of a variant.
namespace orv::automation {

/// Decimal text of an amount without trailing zeros behind the point ("12.5", "-0.0001", "3").
std::u16string currencyText(Currency amount);
double currencyNumber(Currency amount);

/// Decimal text without trailing zeros behind the point, all of up to 29 digits exact.
std::u16string decimalText(const Decimal& decimal);
double decimalNumber(const Decimal& decimal);

} // namespace orv::automation
