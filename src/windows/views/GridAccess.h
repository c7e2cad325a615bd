#pragma once

#include "windows/com/ComPtr.h"
#include "windows/views/GridView.h"

#include <oleacc.h>

namespace orv::windows {

/// How assistive programs see a grid: a table, whose children are its rows (the header row first), whose children are
/// cells, the row's header among them. Nodes outlive the grid and fail with CO_E_OBJNOTCONNECTED then.
ComPtr<IAccessible> accessibleOf(const std::shared_ptr<GridView>& grid);

/// The child identifier under which the table knows a row or a cell, as its events name them: rows from 1 on (the
/// header row), cells with column + 1 in the upper bits.
constexpr LONG accessibleId(ui::CellRef cell) noexcept {
    return (static_cast<LONG>(cell.column + 1) << 20) | static_cast<LONG>(cell.row + 1);
}

} // namespace orv::windows
