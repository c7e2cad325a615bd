#pragma once

#include "erp/host/HostDescription.h"

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace orv::erp {

/// One class type of a description. `part` names the part in messages.
ClassTypeDescription classTypeOf(const nlohmann::ordered_json& json, const std::string& part);

} // namespace orv::erp
