#pragma once

#include "control/Filter.h"

#include <string>

namespace orv::faults {

/// The first thing that should hold of a control at any time and does not; "" when it is whole.
std::string brokenInvariant(control::Filter& filter);

/// What GetFilterSql has to say: its text, or "error " with the number and the description of the failure.
std::u16string filterText(control::Filter& filter);

/// Lets go of all conditions and options, chooses the first field of the first line and types a value: what remains is
/// one comparison of that field. False when a step was refused.
bool enterOneCondition(control::Filter& filter, const char16_t* value);

} // namespace orv::faults
