#pragma once

#include "control/FilterState.h"

namespace orv::control {

/// Wires the events of the constituent controls. Failures of the host in an event end that event; the control stays
/// usable and the host's diagnostics learn why.
void wireEvents(FilterState& state);

/// Saves the selected scheme; failures of the components are trapped, the list stays as it was.
void saveScheme(FilterState& state, schemes::SaveMode mode, std::int32_t status);

} // namespace orv::control
