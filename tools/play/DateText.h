#pragma once

#include "automation/Value.h"

#include <string>
#include <string_view>

namespace orv::play {

/// "2024-02-29 10:00:00"; without the time when it is midnight. The zero date is "1899-12-30".
std::string dateText(automation::Date date);

/// The date of "2024-02-29", "2024-02-29 10:00" or "2024-02-29 10:00:00"; ScenarioError for any other text.
automation::Date parseDateText(std::string_view text);

} // namespace orv::play
