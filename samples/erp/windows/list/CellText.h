#pragma once

#include "erp/windows/list/ListColumn.h"

#include <windows.h>

#include <comutil.h>

#include <string>

namespace orv::erp {

/// The decimals that amounts have where the list does not say.
inline constexpr int usualDecimals = 2;

/// A number with separators of thousands and that many decimals: "-1,234.50".
std::wstring amountText(double amount, int decimals);

/// A sum as it stands below a column: amounts with the usual places, others with those that count, four at most.
std::wstring sumText(const ListColumn& column, double sum);

/// A value as its column shows it: captions of value lists, dates as yyyy-mm-dd with the time where there is one,
/// amounts with `decimals` places, other decimals with separators, whole numbers as they are; "" for Null.
std::wstring cellText(const ListColumn& column, const _variant_t& value, int decimals);

} // namespace orv::erp
