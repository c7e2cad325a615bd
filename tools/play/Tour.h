#pragma once

#include "play/Player.h"

#include <iosfwd>

namespace orv::play {

/// Tells a scenario to a reader who has never seen the control: the notes, what was done, and what came out as tables,
/// SQL and lists of bills.
class Tour final : public Audience {
  public:
    explicit Tour(std::ostream& out) : out_(out) {}
    void begins(const Scenario& scenario) override;
    void played(const Step& step, const StepOutcome& outcome, const std::vector<std::string>& failures) override;

  private:
    std::ostream& out_;
};

} // namespace orv::play
