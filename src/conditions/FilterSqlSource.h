#pragma once

#include "conditions/Today.h"
#include "metadata/FieldRecord.h"

#include <cstdint>

namespace orv::conditions {

/// The current accounting period, as the list server left it.
struct CurrentPeriod {
    std::int32_t number = 0; ///< below 1 when there is none
    double start = 0;        ///< first day, days since 30 December 1899
    double end = 0;          ///< last day
};

/// What the filter text asks of the control, each only where it is needed. Every call may reach the host, which may
/// call the control again before it answers.
class FilterSqlSource : public Today {
  public:
    virtual CurrentPeriod currentPeriod() = 0;
    /// The class id of the current wage document.
    virtual std::int32_t wageClassId() = 0;
    /// The data service's `TypeList`: date and audit quick filters do not apply.
    virtual bool typeList() = 0;
    /// The record of the field at a position (from 1) of the select list.
    virtual metadata::FieldRef fieldAt(std::int32_t position) = 0;
};

} // namespace orv::conditions
