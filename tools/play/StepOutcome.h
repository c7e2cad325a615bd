#pragma once

#include "play/Json.h"
#include "play/RecordingPrompts.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orv::play {

/// A failure as the host's error object shows it.
struct RaisedError {
    std::int32_t number = 0;
    std::u16string source;
    std::u16string description;
};

/// What came out of one step.
struct StepOutcome {
    std::optional<Json> result;         ///< what the step returns; absent for steps that return nothing
    std::optional<Json> args;           ///< the by-reference arguments after a call, in order
    std::vector<ShownMessage> messages; ///< message boxes, in order
    std::optional<RaisedError> error;
    std::vector<std::u16string> dialogs; ///< names of the modal dialogs that were shown, in order
    std::vector<std::u16string> log;     ///< what the control told the host's diagnostics
    std::string refused;                 ///< what a user could not do, because the control did not let him; UTF-8

    /// The output keys: "step", "result", "args", "messages", "dialogs", "error", "refused" and "log", each only where
    /// there is any.
    Json toJson(std::size_t stepNumber) const;
};

} // namespace orv::play
