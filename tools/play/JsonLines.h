#pragma once

#include "play/Player.h"

#include <iosfwd>

namespace orv::play {

/// Prints one JSON line for each step: its outcome, and under "failed" what was not as expected.
class JsonLines final : public Audience {
  public:
    explicit JsonLines(std::ostream& out) : out_(out) {}
    void played(const Step& step, const StepOutcome& outcome, const std::vector<std::string>& failures) override;

  private:
    std::ostream& out_;
};

} // namespace orv::play
