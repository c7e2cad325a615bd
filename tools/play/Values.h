#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Value.h"
#include "automation/Views.h"
#include "play/Json.h"

namespace orv::play {

/// The automation value that JSON stands for: whole numbers are 32-bit integers where they fit and doubles else, null
/// is Null, objects are dictionaries and arrays collections, both made by the host.
automation::Value toValue(const Json& json, automation::ObjectFactory& factory);

/// The dictionary that a JSON object stands for.
automation::Dictionary toDictionary(const Json& object, automation::ObjectFactory& factory);

/// What a value looks like in the output. Empty, Null, Missing and Nothing are null, dates are texts (see DateText.h);
/// dictionaries and collections are written out. Other objects are their type in angle brackets, "<Recordset>".
Json toJson(const automation::Value& value);

} // namespace orv::play
