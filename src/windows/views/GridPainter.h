#pragma once

#include "windows/views/GridLayout.h"

namespace orv::windows {

struct GridLook {
    HFONT font = nullptr;
    int dpi = 96;
    bool focused = false;
    bool enabled = true;
    ui::CellSpan marked{0, 0, 0, 0}; ///< without columns where no block is marked
};

/// Draws the part of a grid that meets `clip`. `origin` is where the grid's client area begins on the device.
void paintGrid(HDC dc, POINT origin, const RECT& clip, const ui::Spread& grid, const GridLayout& layout,
               const GridLook& look);

/// The part of a cell where its button is.
RECT arrowRect(const RECT& cell, int dpi) noexcept;

/// Whether a cell has a list or calendar to open.
bool opensPopup(const ui::Spread& grid, int column, int row);
/// Whether a cell has a button while it is the active one: for its list or calendar, or for its look-up.
bool hasButton(const ui::Spread& grid, int column, int row);

/// What a cell shows: captions without their keys, dates and times in their shown form.
std::u16string shownInCell(const ui::Spread& grid, int column, int row);

/// The header cells that are drawn as one: those of one caption, with blank ones between them; and those above cells
/// that the first row spans, when no other has a text of its own.
ui::CellSpan headerBlock(const ui::Spread& grid, int column);

} // namespace orv::windows
