#pragma once

#include "play/Json.h"

#include <span>
#include <string_view>
#include <vector>

namespace orv::play {

class Session;
struct StepOutcome;

/// What a step can do.
struct Verb {
    std::string_view name;
    std::vector<std::string_view> keys; ///< the parameters beside the verb itself
    /// Does it. Raises AutomationError for what the control raises and ScenarioError for a step that makes no sense.
    void (*run)(Session& session, const Json& step, StepOutcome& outcome);
};

/// All verbs, in the order in which the documentation lists them.
std::span<const Verb> verbs();

/// The verb of that name; null when there is none.
const Verb* findVerb(std::string_view name);

} // namespace orv::play
