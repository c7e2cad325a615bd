#pragma once

#include "conditions/FilterSql.h"
#include "sqlproof/PlainCondition.h"

#include <string>
#include <vector>

namespace orv::sqlproof {

/// One line of the condition grid.
struct Line {
    std::u16string column; ///< SQL name
    Question question;
    std::u16string left;
    std::u16string right;
    bool orNext = false; ///< OR leads to the next line, else AND
};

/// The filter text of some lines, by way of the grid as the control assembles it. Raises AutomationError.
std::u16string filterText(const std::vector<Line>& lines);

} // namespace orv::sqlproof
