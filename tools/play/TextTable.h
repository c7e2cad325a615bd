#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orv::play {

/// The columns that a UTF-8 text takes on a terminal: Chinese characters and full-width forms take two.
std::size_t displayWidth(std::string_view utf8);

/// Rows of texts as a table whose columns stand under each other; the first row is the title row. Every line begins
/// with `indent` and ends with a line feed; columns that are empty throughout, titles aside, are left out.
std::string textTable(const std::vector<std::vector<std::string>>& rows, std::string_view indent);

} // namespace orv::play
