#pragma once

#include "play/Json.h"

#include <string>

namespace orv::play {

class Session;
struct StepOutcome;

// The public members of the control by name. Each function raises ScenarioError for a name that the control does not
// have, or not in that way, and for arguments of a wrong kind; what the member raises passes through.

/// Writes a property. `DataSrv` takes the number of a class type, objects are dictionaries.
void letMember(Session& session, const std::string& name, const Json& value);

/// Reads a property. `DataSrv` is the number of its class type, null without a data service.
Json getMember(Session& session, const std::string& name);

/// Runs a method; `args` is an array. By-reference arguments that are left out start empty; what the call leaves in
/// them goes into the outcome, also when it fails.
void callMember(Session& session, const std::string& name, const Json& args, StepOutcome& outcome);

} // namespace orv::play
