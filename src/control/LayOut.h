#pragma once

#include "control/FilterState.h"

namespace orv::control {

/// Places every constituent control for the present size, tab and class type, and shows those of the selected tab.
void layOutControls(FilterState& state);

} // namespace orv::control
