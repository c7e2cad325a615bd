#pragma once

#include <optional>
#include <string_view>

namespace orv::automation {

/// The number that a whole text stands for in zh-CN; infinite beyond the range of a Double.
std::optional<double> readNumber(std::u16string_view text);

} // namespace orv::automation
