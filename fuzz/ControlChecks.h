#pragma once

#include "SmallHost.h"
#include "control/Filter.h"

namespace orv::fuzz {

/// What holds of a control at any time, whatever the user and the host have done.
void checkInvariants(control::Filter& filter);

/// Asks for every result twice: nothing may change by asking, nothing but AutomationError may escape.
void checkResults(control::Filter& filter);

/// Sets the control up anew and enters one condition: its text must be exact.
void checkUsable(control::Filter& filter, SmallHost& host);

} // namespace orv::fuzz
