#pragma once

#include "automation/Views.h"

#include <string>
#include <string_view>

namespace orv::erp {

/// A value as the host's dialogs show it: dates as yyyy-mm-dd, with hh:mm:ss where they have a time; 是 and 否; ""
/// for Null; everything else as automation writes it.
std::u16string displayText(const automation::Value& value);

/// Text of a record's entry, "" for an absent one and Null.
std::u16string entryText(const automation::Dictionary& record, std::u16string_view key);

} // namespace orv::erp
