#pragma once

#include "automation/Object.h"
#include "erp/host/HostState.h"

#include <cstdint>

namespace orv::erp {

// The choice that a look-up dialog ends with.

/// A chosen record: `Properties(name)` gives a column, "" one that the record lacks. Null when the dialog was
/// cancelled: no answer waits, the answer says so, or no record of the class has the number that it names.
automation::ObjectRef chooseBaseData(HostState& state, std::int32_t lookUpClass);
/// The same for the bills of a class type, by their number.
automation::ObjectRef chooseBill(HostState& state, std::int32_t classTypeId);

} // namespace orv::erp
