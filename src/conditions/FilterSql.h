#pragma once

#include "automation/AutomationError.h"
#include "conditions/ConditionRow.h"
#include "conditions/FilterSqlSource.h"
#include "conditions/QuickFilters.h"
#include "ui/ComboBox.h"
#include "ui/Control.h"
#include "ui/ControlArray.h"
#include "ui/Spread.h"

#include <string>
#include <string_view>
#include <vector>

namespace orv::conditions {

/// Where the parts of the filter text stand on the control.
struct FilterForm {
    const ui::Spread& vsFilter;
    const ui::ControlArray<ui::Label>& lblFilter;
    const ui::ControlArray<ui::ComboBox>& cmbFilter;
    std::u16string classType; ///< text of `cboClassType`
    QuickFilterChoice choice;
    // The words of the error context, in the user's language.
    std::u16string lineWord = u"行：";
    std::u16string fieldWord = u" 字段：";
};

/// Extends `strFilter` by the conditions of the grid, the filter panel and the quick filters: text for a WHERE clause,
/// without the word. Nothing happens while the first grid line has no field.
///
/// `rows` are re-read from the grid and must live as long as the call, whatever the host does meanwhile.
/// `errorContext` names the line in work ("行：3; 字段：日期 "), empty before the first one and kept after the last.
/// Any failure is raised as it came, without the context; `strFilter` then holds what was finished before.
/// Today's date is asked of `source` at most once.
void appendFilterSql(const FilterForm& form, std::vector<ConditionRow>& rows, FilterSqlSource& source,
                     std::u16string& errorContext, std::u16string& strFilter);

/// Error 5 when the brackets of the lines do not balance. Only the number of characters counts.
void checkBrackets(const ui::Spread& vsFilter);

/// The same error with the context in front of its description.
automation::AutomationError withContext(const automation::AutomationError& error, std::u16string_view errorContext);

} // namespace orv::conditions
