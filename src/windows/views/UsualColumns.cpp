#include "windows/views/UsualColumns.h"

#include "control/FilterControls.h"

#include <initializer_list>

namespace orv::windows {

namespace {

/// In characters; a Chinese character takes two. 0 hides the column.
void setUsual(ui::Spread& grid, std::initializer_list<double> widths) {
    constexpr double untouched = 8.0;
    int column = 0;
    for (const double width : widths) {
        if (++column > grid.maxCols() || grid.columnWidth(column) != untouched)
            return;
        if (width > 0)
            grid.setColumnWidth(column, width);
        else
            grid.setColumnHidden(column, true);
    }
}

} // namespace

void setUsualColumns(control::FilterControls& controls) {
    // Bracket, field, comparison, value with time and end, bracket, logic.
    setUsual(controls.vsFilter, {5, 16, 11, 17, 8, 2, 5, 7});
    setUsual(controls.vsOrder, {30, 8, 8});
    setUsual(controls.vsHideColumn, {22, 16, 7, 12, 0, 0, 0, 0, 0, 0});
}

} // namespace orv::windows
