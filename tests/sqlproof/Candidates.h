#pragma once

#include "sqlproof/PlainCondition.h"

#include <string>
#include <vector>

namespace orv::sqlproof {

/// The values to try for a comparison: those of Values.h that suit operator and column, and for columns of texts some
/// that `rows` hold in their first column.
std::vector<std::u16string> valuesFor(const Question& question, const std::vector<std::vector<Cell>>& rows);

} // namespace orv::sqlproof
