#pragma once

#include "control/FilterState.h"

namespace orv::control {

/// What happens when the control is created: fonts, headings, tool tips; then the events are wired.
void create(FilterState& state);

} // namespace orv::control
