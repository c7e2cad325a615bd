#pragma once

#include <stdexcept>

namespace orv::play {

/// A scenario that cannot be played as it is written: an unknown verb, key or control, a question without an answer.
/// Not for what the control or its host raises. The text is UTF-8 and ready to be read by the scenario's author.
class ScenarioError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

} // namespace orv::play
