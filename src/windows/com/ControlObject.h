#pragma once

#include "automation/Object.h"
#include "control/FilterControls.h"
#include "windows/com/ComPtr.h"

#include <string_view>

namespace orv::windows {

/// The automation object of a constituent control: what a user sees there and does there. Run-time error 5 when there
/// is no control of that name, also later, when an element of a control array is gone.
///
/// `owner` is kept alive as long as the object. All controls have `Name`, `Visible` and `Enabled`; further
/// - labels, buttons, check boxes: `Caption`; buttons: `Press()`; check boxes: `Value`, `Click()`
/// - combo boxes: `Text`, `Count`, `ListIndex`, `Item(position from 0)`, `Choose(position)`
/// - grids: `MaxRows`, `MaxCols`, `Text(column, row)`, `CellType(column, row)` ("edit", "comboBox", ... as ui::CellType
///   names them; of the cell that is shown there, where cells are joined),
///   `ListCount(column, row)`, `Item(column, row, position)`, `MoveTo(column, row)`, `Type(column, row, text)`,
///   `Choose(column, row, position)`, `Toggle(column, row)`, `Key(code, shift)`; the actions tell whether they took
///   place
/// - tab strips: `Count`, `Selected`, `Choose(position from 1)`
/// - toolbars: `Click(key)`, `Menu(key, item key)`
/// - list views: `Count`, `Selected`, `Item(position from 1)`, `Choose(position)`
automation::ObjectRef makeControlObject(ComPtr<IUnknown> owner, control::FilterControls& controls,
                                        std::u16string_view name);

} // namespace orv::windows
