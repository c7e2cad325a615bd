#pragma once

#include "editor/ConditionGrid.h"
#include "editor/LookUp.h"

namespace orv::editor {

/// F7 in a value cell of the condition grid: lets the user choose the value and writes it into the cell.
class ValueLookUp {
  public:
    /// All must outlive this object.
    ValueLookUp(ui::Spread& vsFilter, ConditionGrid& conditions, LookUpHost& host)
        : grid_(vsFilter), conditions_(conditions), host_(host) {}

    /// A key was pressed in the grid; only F7 in the value column counts. Failures of the look-up are shown.
    void keyDown(int keyCode);

  private:
    void lookUp(int row);

    ui::Spread& grid_;
    ConditionGrid& conditions_;
    LookUpHost& host_;
};

} // namespace orv::editor
