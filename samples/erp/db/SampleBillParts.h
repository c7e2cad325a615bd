#pragma once

#include "erp/db/SampleParts.h"

// What the bills of all kinds have in common.
namespace orv::erp {

/// The date of bill `number` (from 1). The first bills take every boundary day with every boundary time of day; then
/// the dates spread over 2023 and 2024, a third of them in the weeks around the sample's today; some have none.
std::optional<Moment> billDate(Random& random, int number);

/// The day of a date, at midnight.
std::optional<Moment> dayOf(const std::optional<Moment>& moment);

/// Remarks of bills: nothing, empty, blank, mixed case, quotes and wildcards among ordinary ones.
std::optional<std::string> remark(Random& random);

/// Where a bill stands.
struct Progress {
    int status = 0;
    int preparer = 1;
    std::optional<int> checker;
    int voucher = 0;
};
Progress progress(Random& random);

/// An amount of up to 1,000,000.00, now and then round or 0; negative when `negative`.
Fixed amount(Random& random, bool negative = false);

/// A number of 1 to `count`, or nothing in `percentMissing` of the cases.
std::optional<int> reference(Random& random, int count, int percentMissing = 3);

} // namespace orv::erp
