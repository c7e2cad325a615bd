#pragma once

#include "automation/Value.h"

#include <string>

namespace orv::erp {

/// A value as the host's dialogs show it: dates as yyyy-mm-dd, with hh:mm:ss where they have a time; 是 and 否; ""
/// for Null; everything else as automation writes it.
std::u16string displayText(const automation::Value& value);

} // namespace orv::erp
