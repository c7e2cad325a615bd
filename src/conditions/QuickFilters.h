#pragma once

#include "conditions/FilterSqlSource.h"

#include <string>
#include <string_view>

namespace orv::conditions {

/// The selected positions (from 0, -1 for none) of the option combo boxes.
struct QuickFilterChoice {
    int time = -1;  ///< `cboTime`: today, this week, current period; any other is no limit
    int check = -1; ///< `cboCheck`: audited, not audited
    int post = -1;  ///< `cboPost`: with voucher, without
};

/// The document table of a class type by its caption, trimmed or not; empty when it has no quick filters.
std::u16string_view quickFilterTable(std::u16string_view classType) noexcept;

/// Appends the quick filters that apply to the class type to `extra`, joined by " and ".
void appendQuickFilters(std::u16string& extra, std::u16string_view classType, const QuickFilterChoice& choice,
                        FilterSqlSource& source);

} // namespace orv::conditions
