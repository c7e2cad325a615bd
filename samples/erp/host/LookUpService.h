#pragma once

#include "automation/Object.h"
#include "erp/host/HostState.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace orv::erp {

// The choice that a look-up dialog ends with: that of the answer that waits, otherwise that of the user at the host's
// dialog window.

/// A look-up of base data.
struct BaseDataLookUp {
    std::int32_t lookUpClass = 0;
    std::u16string filter;    ///< condition on the class's table, or empty
    std::u16string unitGroup; ///< of units: only those of this group ("" or "0": of all)
    bool isMultiple = false;  ///< several records may be chosen: each column then holds theirs with commas between
};

/// A chosen record: `Properties(name)` gives a column, "" one that the record lacks. Null when the dialog was
/// cancelled: the answer or the user says so, there is neither, or no record of the class has the number that the
/// answer names.
automation::ObjectRef chooseBaseData(HostState& state, const BaseDataLookUp& lookUp);
/// The same for the bills of a class type, by their number; `filter` is a condition on the bills, or empty.
automation::ObjectRef chooseBill(HostState& state, std::int32_t classTypeId, const std::u16string& filter);

} // namespace orv::erp
