#pragma once

#include "automation/ObjectFactory.h"
#include "conditions/ConditionRow.h"
#include "metadata/FieldRecord.h"

#include <string>

namespace orv::editor {

/// Where the items of value drop-downs come from.
struct ValueListSource {
    automation::ObjectRef dataService;
    automation::ObjectFactory& factory;
    std::u16string props; ///< user properties string
};

/// The list text of a comparison's value drop-down: padded items joined by tabs, "" when there are none. Failures end
/// the list where it stands; `failure`, when given, receives the error's description.
std::u16string BuildValueList(const conditions::CompareEntry& entry, const metadata::FieldRecord& field,
                              const ValueListSource& source, std::u16string* failure = nullptr);

/// The list text of the field's own look-up list.
std::u16string BuildLookupValueList(const metadata::FieldRecord& field, const ValueListSource& source);

} // namespace orv::editor
