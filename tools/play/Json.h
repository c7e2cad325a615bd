#pragma once

#include <nlohmann/json.hpp>

namespace orv::play {

/// JSON with its keys in the order in which they were written: dictionaries of the host keep theirs.
using Json = nlohmann::ordered_json;

} // namespace orv::play
