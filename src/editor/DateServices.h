#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Value.h"

#include <cstdint>
#include <string>

namespace orv::editor {

/// What the list server calls the current accounting period; start and end are its first and last day.
struct AccountingPeriod {
    bool known = false; ///< the service answered True
    automation::Value year;
    automation::Value period;
    automation::Value start;
    automation::Value end;
};

/// The database server's date and time; the zero date (30 December 1899) when it gives no row.
automation::Date serverToday(automation::ObjectFactory& factory);

/// Asks the list server; class types of the general ledger have a period of their own. `period` holds the caller's
/// values at first and whatever the service left there afterwards.
void askCurrentPeriod(automation::ObjectFactory& factory, std::int32_t classTypeId, const std::u16string& props,
                      AccountingPeriod& period);

} // namespace orv::editor
