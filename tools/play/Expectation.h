#pragma once

#include "play/Json.h"

#include <string>
#include <vector>

namespace orv::play {

/// Compares what came out with what was expected. Of an object only the keys that are expected are compared, down to
/// any depth; null is expected where there is nothing. Arrays must have the same length, and their items are compared
/// one by one. Each difference is a sentence that begins with the place ("result.rows[0][1]").
std::vector<std::string> differences(const Json& expected, const Json& found);

} // namespace orv::play
