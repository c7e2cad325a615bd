#pragma once

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "ui/Spread.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace orv::ui {

/// The number of the AutomationError that `action` raises; 0 when it raises none.
template <class Action>
std::int32_t errorOf(Action action) {
    try {
        action();
    } catch (const automation::AutomationError& error) {
        return error.number();
    }
    return 0;
}

/// A text that a failure shows readably.
inline std::string shown(std::u16string_view text) {
    return automation::toUtf8(text);
}

inline void PrintTo(const CellRef& cell, std::ostream* out) {
    *out << "column " << cell.column << " row " << cell.row;
}
inline void PrintTo(const CellSpan& s, std::ostream* out) {
    *out << s.columns << "x" << s.rows << " at column " << s.column << " row " << s.row;
}

inline const CellFormat combo{.type = CellType::comboBox};
inline const CellFormat checkBox{.type = CellType::checkBox};

/// A grid of that size whose cells have no content.
struct Grid : Spread {
    Grid(int columns, int rows) : Spread(u"grid") {
        setMaxCols(columns);
        setMaxRows(rows);
    }
};

} // namespace orv::ui
