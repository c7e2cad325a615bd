#pragma once

#include "play/Scenario.h"
#include "play/StepOutcome.h"

#include <string>
#include <vector>

namespace orv::play {

/// Watches a scenario while it is played.
class Audience {
  public:
    virtual ~Audience() = default;
    virtual void begins(const Scenario&) {}
    /// A step is over; `failures` are sentences, none when all is as expected.
    virtual void played(const Scenario& scenario, const Step& step, const StepOutcome& outcome,
                        const std::vector<std::string>& failures) = 0;
};

/// Plays a scenario to its end and returns all failures, each as a sentence that names scenario and step: expectations
/// that do not hold, errors and refusals that no expectation names, and answers or faults that nothing asked for.
/// ScenarioError, with the step's number, for a step that cannot be played.
std::vector<std::string> play(const Scenario& scenario, Audience& audience);

} // namespace orv::play
