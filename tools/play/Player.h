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
    virtual void played(const Step& step, const StepOutcome& outcome, const std::vector<std::string>& failures) = 0;
};

/// How a scenario went.
struct Report {
    /// What was not as expected, each a sentence that names scenario and step: expectations that do not hold, errors
    /// and refusals that no expectation names, and answers that nothing asked for.
    std::vector<std::string> failures;
    /// Why the scenario could not be played to its end, with the step; empty when it could.
    std::string cannotPlay;
};

/// Plays a scenario: all steps, whatever fails, up to one that cannot be played as it is written.
Report play(const Scenario& scenario, Audience& audience);

} // namespace orv::play
