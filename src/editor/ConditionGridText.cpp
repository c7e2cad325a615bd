#include "editor/ConditionGrid.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "conditions/GridRows.h"
#include "support/Dates.h"
#include "support/Letters.h"
#include "support/PairList.h"

#include <algorithm>
#include <optional>
#include <unordered_map>

namespace orv::editor {

using automation::AutomationError;
using conditions::ConditionRecord;
using metadata::FieldRecord;
using metadata::FieldRef;
using ui::CellType;
namespace fieldKey = metadata::fieldKey;

namespace {

bool isDateTime(const FieldRecord& field) {
    return field.number(fieldKey::sourceType) == metadata::sourceTypeDateTime;
}

/// A list whose item alone is the value; a list that only fills an edit cell keeps its text.
bool isValueList(const ui::Spread& grid, int row) {
    const ui::CellFormat& format = grid.format(column::value, row);
    return format.type == CellType::comboBox && !format.freeText;
}

} // namespace

std::u16string ConditionGrid::conditionText() const {
    std::vector<ConditionRecord> records;
    const auto catalogue = host_.catalogue();
    for (int row = 1; row <= grid_.maxRows(); ++row) {
        const std::int32_t position = fieldPosition(row);
        if (position < 1 || !catalogue)
            continue;
        const FieldRef field = catalogue->field(position);
        ConditionRecord record;
        record.left = grid_.text(column::left, row);
        record.fieldName = field->text(fieldKey::fieldName);
        record.comparison = automation::numberToText(grid_.comboSelection(column::comparison, row));
        const std::u16string& value = grid_.text(column::value, row);
        if (isValueList(grid_, row))
            record.value = automation::numberToText(grid_.comboSelection(column::value, row));
        else if (grid_.cellType(column::value, row) != CellType::date)
            record.value = value;
        else if (isDateTime(*field))
            record.value = conditions::dateTimeValue(value, grid_.text(column::valueTime, row));
        else
            record.value = conditions::dateValue(value);
        record.right = grid_.text(column::right, row);
        record.logic = grid_.text(column::logic, row);
        records.push_back(std::move(record));
    }
    return conditions::formatConditionText(records);
}

void ConditionGrid::loadConditionText(std::u16string_view text, MissingField missing) {
    if (support::Trim(text).empty())
        return;
    const auto catalogue = host_.catalogue();
    if (!catalogue) {
        clearAll();
        return;
    }
    // Asked before the grid is touched: a host that fails here leaves the conditions as they are.
    std::unordered_map<std::u16string, std::int32_t> positions;
    for (std::int32_t position = 1; position <= catalogue->count(); ++position) {
        const FieldRef field = catalogue->field(position);
        if (host_.onSelectedPage(*field))
            positions.try_emplace(support::toUpper(field->text(fieldKey::fieldName)), position);
    }
    clearAll();
    const auto records = conditions::parseConditionText(text);
    std::optional<AutomationError> failure;
    int row = 1;
    for (std::size_t i = 0; i < records.size() && row <= grid_.maxRows(); ++i) {
        const auto found = positions.find(support::toUpper(records[i].fieldName));
        if (found != positions.end()) {
            const int line = row++;
            try {
                loadRecord(records[i], found->second, line);
            } catch (const AutomationError& error) {
                // The line shows its field without a comparison, which no filter text is made of; those below it must
                // not be lost with it, or the filter would be wider than the user was told.
                grid_.setComboSelection(column::comparison, line, -1);
                comparisonChanged(line);
                if (!failure)
                    failure = error;
            }
            continue;
        }
        host_.log(u"条件行 " + automation::numberToText(static_cast<double>(i + 1)) + u" 未载入：字段 " +
                  records[i].fieldName + u" 不存在");
        if (missing == MissingField::leavesLineEmpty)
            ++row;
    }
    if (failure)
        throw *failure;
}

void ConditionGrid::loadRecord(const ConditionRecord& record, std::int32_t position, int row) {
    const FieldRef field = host_.catalogue()->field(position);
    grid_.setText(column::field, row, fieldItem(field->text(fieldKey::caption), position));
    comboSelectionChange(column::field, row);
    grid_.setText(column::left, row, record.left);
    grid_.setText(column::right, row, record.right);
    grid_.setText(column::logic, row, record.logic);
    grid_.setComboSelection(column::comparison, row, support::storedPosition(record.comparison));
    comboSelectionChange(column::comparison, row);
    if (isValueList(grid_, row)) {
        grid_.setComboSelection(column::value, row, support::storedPosition(record.value));
    } else if (grid_.cellType(column::value, row) == CellType::date) {
        // A text that is no date leaves a date-time empty; any other date cell takes it as it is.
        const bool isDate = automation::isDate(record.value);
        const bool hasTime = isDateTime(*field);
        grid_.setText(column::value, row,
                      isDate    ? support::FormatDateText(record.value, u"MMDDYYYY")
                      : hasTime ? std::u16string()
                                : record.value);
        if (hasTime)
            grid_.setText(column::valueTime, row,
                          isDate ? support::FormatDateText(record.value, u"HHMMSS") : std::u16string());
    } else {
        grid_.setText(column::value, row, record.value);
    }
}

} // namespace orv::editor
