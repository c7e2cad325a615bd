#pragma once

#include "conditions/FilterSqlSource.h"
#include "ui/ComboBox.h"
#include "ui/Control.h"
#include "ui/ControlArray.h"

#include <string>

namespace orv::conditions {

/// Appends the conditions of the filter panel to `extra`, joined by " AND ". Every visible label has a drop-down of
/// padded items, whose hidden part is a template: "@Field", in any letter case, stands for the field at the position
/// that the label's `Tag` names. An empty template and "NONE" are no condition.
void appendPanelConditions(std::u16string& extra, const ui::ControlArray<ui::Label>& lblFilter,
                           const ui::ControlArray<ui::ComboBox>& cmbFilter, FilterSqlSource& source);

} // namespace orv::conditions
