#pragma once

#include <optional>
#include <string_view>

namespace orv::automation {

/// The date and time that a whole text stands for in zh-CN. `currentYear` is asked where it completes a date of a month
/// and a day.
std::optional<double> readDate(std::u16string_view text, int (*currentYear)());

} // namespace orv::automation
