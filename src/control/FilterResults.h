#pragma once

#include "control/FilterState.h"

namespace orv::control {

/// Extends `strFilter` by the filter text of the grid, the panel and the quick filters. A failure is shown with the
/// line that it belongs to (False), or raised with that context before its description.
bool filterSql(FilterState& state, std::u16string& strFilter, bool raiseErrors);

} // namespace orv::control
