#pragma once

#include "automation/Value.h"
#include "automation/Views.h"

#include <nlohmann/json_fwd.hpp>

namespace orv::erp {

/// JSON as automation values: whole numbers become Int32 (Double beyond 32 bits), other numbers Double, null becomes
/// Null, objects dictionaries (keys in the order of the text) and arrays collections.
automation::Value valueOf(const nlohmann::ordered_json& json);

/// A JSON object as a new dictionary.
automation::Dictionary dictionaryOf(const nlohmann::ordered_json& object);

} // namespace orv::erp
