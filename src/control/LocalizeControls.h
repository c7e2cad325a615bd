#pragma once

#include "control/FilterState.h"

#include <vector>

namespace orv::control {

/// Translates the captions of controls in place and hands each of them to the host's font component.
void localizeControls(FilterState& state, const std::vector<ui::Control*>& controls);

/// The same for every constituent control.
void localizeControls(FilterState& state);

} // namespace orv::control
