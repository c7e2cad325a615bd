#include "editor/ConditionGrid.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/TracedCall.h"
#include "conditions/GridRows.h"
#include "support/PaddedItem.h"
#include "support/Pieces.h"

#include <algorithm>

namespace orv::editor {

using automation::AutomationError;
using conditions::CompareEntry;
using conditions::ConditionRow;
using metadata::FieldRecord;
using metadata::FieldRef;
using ui::CellFormat;
using ui::CellType;
namespace fieldKey = metadata::fieldKey;

namespace {

/// The last line that an insert or a delete moves, whatever the grid's row count.
constexpr int lastMovedRow = 29;

constexpr const char16_t* leftBrackets = u"\t(\t((\t(((";
constexpr const char16_t* rightBrackets = u"\t)\t))\t)))";
constexpr const char16_t* logicWords = u"并且\t或";

/// In characters; a Chinese one takes two. Bracket, field, comparison, value with time and end, bracket, logic.
constexpr double columnWidths[column::logic] = {5, 16, 11, 17, 8, 2, 5, 7};

CellFormat comboFormat() {
    CellFormat format;
    format.type = CellType::comboBox;
    return format;
}

/// The captions of a list of padded items, as a list of their own.
std::u16string captionsOf(std::u16string_view items) {
    std::u16string captions;
    support::PieceReader reader(items, u"\t");
    for (std::u16string_view item; reader.next(item);) {
        if (!captions.empty())
            captions += u'\t';
        captions += support::SplitLookupText(item, false);
    }
    return captions;
}

} // namespace

std::u16string fieldItem(std::u16string_view caption, std::int32_t position) {
    return support::PadItem(caption, automation::numberToText(position));
}

ConditionGrid::ConditionGrid(ui::Spread& vsFilter, ConditionGridHost& host) : grid_(vsFilter), host_(host) {
    onCombo_ = grid_.comboSelectionChange.subscribe([this](int column, int row) {
        try {
            automation::tracedEvent(host_.currentTrace(), u"vsFilter.comboSelectionChange",
                                    [&] { comboSelectionChange(column, row); });
            goToValue(column, row);
        } catch (const AutomationError& error) {
            // A line that is set up in part shows no comparison, which no filter text is made of: its value could be
            // one that nobody has entered. The host's diagnostics learn why.
            if (row <= grid_.maxRows()) {
                grid_.setComboSelection(column::comparison, row, -1);
                comparisonChanged(row);
            }
            host_.log(error.description());
        }
    });
    onLeaveRow_ = grid_.leaveRow.subscribe([this](int row, int newRow, bool& cancel) {
        automation::tracedEvent(host_.currentTrace(), u"vsFilter.leaveRow", [&] {
            if (!mayLeaveRow(row, newRow))
                cancel = true;
        });
    });
}

void ConditionGrid::layOut() {
    grid_.setMaxRows(rowCount);
    grid_.setMaxCols(column::logic);
    grid_.setText(column::field, 0, u"项目名称");
    grid_.setText(column::comparison, 0, u"比较");
    grid_.setText(column::value, 0, u"比较值");
    grid_.setText(column::valueEnd, 0, u"比较值");
    grid_.setText(column::logic, 0, u"逻辑");
    for (int col = 1; col <= column::logic; ++col)
        grid_.setColumnWidth(col, columnWidths[col - 1]);
    for (int row = 1; row <= rowCount; ++row) {
        for (const int col : {column::left, column::field, column::comparison, column::right, column::logic})
            grid_.setFormat(col, row, comboFormat());
        grid_.setComboList(column::left, row, leftBrackets);
        grid_.setComboList(column::right, row, rightBrackets);
        grid_.setComboList(column::logic, row, logicWords);
        resetValueArea(row);
    }
}

void ConditionGrid::setFieldList(const std::u16string& items) {
    std::vector<int> chosen;
    for (int row = 1; row <= grid_.maxRows(); ++row)
        if (!grid_.text(column::field, row).empty())
            chosen.push_back(row);
    grid_.setColumnComboList(column::field, items);
    // A field that is not offered any more takes its comparison and value with it.
    for (const int row : chosen)
        if (row <= grid_.maxRows() && grid_.text(column::field, row).empty())
            fieldCleared(row);
}

std::int32_t ConditionGrid::fieldPosition(int row) const {
    return automation::roundToInt32(automation::Val(support::SplitLookupText(grid_.text(column::field, row), true)));
}

ConditionRow& ConditionGrid::grow(int row) {
    const auto needed = static_cast<std::size_t>(row);
    while (rows_->size() < needed)
        rows_->push_back(conditions::NewConditionRow());
    return (*rows_)[needed - 1];
}

void ConditionGrid::comboSelectionChange(int column, int row) {
    if (column == column::field)
        fieldChanged(row);
    else if (column == column::comparison)
        comparisonChanged(row);
}

void ConditionGrid::goToValue(int column, int row) {
    const bool takesValue = column == column::field || column == column::comparison;
    if (takesValue && row <= grid_.maxRows() && !grid_.text(column, row).empty())
        grid_.setActiveCell(column::value, row);
}

void ConditionGrid::fieldChanged(int row) {
    grow(row);
    const std::int32_t position = fieldPosition(row);
    if (position < 1) {
        fieldCleared(row);
        return;
    }
    const auto catalogue = host_.catalogue();
    if (!catalogue)
        throw AutomationError::runtime(automation::errorNumber::objectNotSet);
    const FieldRef field = catalogue->field(position);
    // Read before the line's record is taken: the host may drop or grow the rows while it answers.
    const std::int32_t colType = field->number(fieldKey::colType);
    std::u16string key = field->text(fieldKey::key);
    std::u16string name = field->text(fieldKey::fieldNameExt);
    CellFormat valueFormat = textCellFormat(*field);
    ConditionRow& record = grow(row);
    record.HDict = field;
    record.FColType = colType;
    record.FFieldKey = std::move(key);
    record.FFieldName = std::move(name);
    record.FCompareDct.reset();
    record.FCompare.clear();
    record.FCompareIndex.reset();
    grid_.setComboList(column::comparison, row, u"");
    grid_.setText(column::comparison, row, u"");
    resetValueArea(row);
    grid_.setFormat(column::value, row, std::move(valueFormat)); // stays where the field has no comparison
    fillComparisons(row, field->value(fieldKey::condition));
}

void ConditionGrid::fieldCleared(int row) {
    ConditionRow& record = grow(row);
    record.FFieldKey.clear();
    record.FFieldName.clear();
    record.FColType = metadata::colType::none;
    record.HDict.reset();
    record.FCompareDct.reset();
    record.FCompare.clear();
    record.FCompareIndex.reset();
    for (const int col : {column::left, column::right, column::logic})
        grid_.setText(col, row, u"");
    grid_.setComboList(column::comparison, row, u"");
    grid_.setText(column::comparison, row, u"");
    resetValueArea(row);
}

void ConditionGrid::fillComparisons(int row, const automation::Value& condition) {
    const auto comparisons = host_.comparisons();
    if (!comparisons)
        throw AutomationError::runtime(automation::errorNumber::objectNotSet);
    const std::u16string list = comparisonList(*comparisons->entries(condition));
    if (list.empty())
        return;
    grid_.setComboList(column::comparison, row, list);
    grid_.setComboSelection(column::comparison, row, 0);
    comparisonChanged(row);
}

void ConditionGrid::comparisonChanged(int row) {
    ConditionRow& record = grow(row);
    const int selected = grid_.comboSelection(column::comparison, row);
    if (selected < 0) {
        record.FCompareDct.reset();
        record.FCompare.clear();
        record.FCompareIndex.reset();
        return;
    }
    setUpValueCell(selected + 1, row);
}

void ConditionGrid::setUpValueCell(int position, int row) {
    const FieldRef field = grow(row).HDict;
    const auto comparisons = host_.comparisons();
    if (!field || !comparisons)
        return;
    const auto entries = comparisons->entries(field->value(fieldKey::condition));
    if (position > static_cast<int>(entries->size()))
        throw AutomationError::runtime(automation::errorNumber::subscriptOutOfRange);
    const conditions::CompareEntryRef entry = (*entries)[static_cast<std::size_t>(position - 1)];
    ConditionRow& record = grow(row);
    record.FCompareDct = entry;
    record.FCompare = entry->FOperate;
    record.FCompareIndex = position;
    applyShape(shapeValueCell(*entry, *field, host_.decimalPlaces()), *entry, *field, row);
}

void ConditionGrid::applyShape(const ValueCellShape& shape, const CompareEntry& entry, const FieldRecord& field,
                               int row) {
    std::u16string items;
    if (shape.list != ValueCellShape::List::none) {
        std::u16string failure;
        const ValueListSource source = host_.valueListSource();
        items = BuildValueList(entry, field, source, &failure);
        if (!failure.empty())
            host_.log(failure);
        if (items.empty() && shape.list == ValueCellShape::List::items) {
            try {
                items = BuildLookupValueList(field, source);
            } catch (const AutomationError& error) {
                // Without its list the cell takes typed text; a scheme that is being loaded goes on.
                host_.log(error.description());
            }
        }
    }

    // What the user typed survives a change between comparisons that take the same kind of text.
    const CellFormat before = grid_.format(column::value, row);
    const std::u16string kept = grid_.text(column::value, row);
    const std::u16string keptTime = grid_.text(column::valueTime, row);
    resetValueArea(row);
    CellFormat format = shape.format;
    if (!items.empty()) {
        format = comboFormat();
        format.freeText = shape.list == ValueCellShape::List::captions;
    }
    grid_.setCellBackColor(column::value, row, valueCellColor);
    grid_.setFormat(column::value, row, format);
    if (!items.empty())
        grid_.setComboList(column::value, row, format.freeText ? captionsOf(items) : items);
    const bool sameKind = before.type == format.type && entry.FInput && format.type != CellType::comboBox;
    if (sameKind)
        grid_.setText(column::value, row, kept);
    if (shape.area == ValueCellShape::Area::dateTime) {
        grid_.removeSpan(column::value, row);
        grid_.addSpan({column::valueTime, row, 2, 1});
        CellFormat time;
        time.type = CellType::time;
        grid_.setFormat(column::valueTime, row, time);
        grid_.setCellBackColor(column::valueTime, row, valueCellColor);
        if (sameKind)
            grid_.setText(column::valueTime, row, keptTime);
    }
}

void ConditionGrid::resetValueArea(int row) {
    grid_.removeSpan(column::valueTime, row);
    grid_.removeSpan(column::value, row);
    grid_.addSpan({column::value, row, column::valueEnd - column::value + 1, 1});
    for (const int col : {column::value, column::valueTime}) {
        grid_.setFormat(col, row, CellFormat{});
        grid_.setText(col, row, u"");
        grid_.setLocked(col, row, false);
        grid_.setCellBackColor(col, row, std::nullopt);
    }
}

void ConditionGrid::clearRow(int row) {
    grid_.setText(column::left, row, u"");
    grid_.setText(column::field, row, u"");
    comboSelectionChange(column::field, row);
    grid_.setFormat(column::comparison, row, comboFormat());
}

void ConditionGrid::clearAll() {
    for (int row = 1; row <= grid_.maxRows(); ++row)
        clearRow(row);
}

void ConditionGrid::copyRow(int from, int to) {
    const auto textOf = [this, from](int column) { return grid_.text(column, from); };
    const std::u16string left = textOf(column::left);
    const std::u16string field = textOf(column::field);
    const std::u16string comparison = textOf(column::comparison);
    const std::u16string value = textOf(column::value);
    const std::u16string right = textOf(column::right);
    const std::u16string logic = textOf(column::logic);
    clearRow(to);
    grid_.setText(column::left, to, left);
    grid_.setText(column::field, to, field);
    comboSelectionChange(column::field, to);
    // The record must follow the comparison that the line shows, not the field's first one.
    grid_.setText(column::comparison, to, comparison);
    comboSelectionChange(column::comparison, to);
    grid_.setText(column::value, to, value);
    grid_.setText(column::right, to, right);
    grid_.setText(column::logic, to, logic);
}

void ConditionGrid::insertRow() {
    const int active = grid_.activeCell().row;
    if (active == grid_.maxRows())
        return;
    for (int row = lastMovedRow; row >= std::max(active, 1); --row)
        copyRow(row, row + 1);
    clearRow(active);
    grid_.setActiveCell(column::field, active);
    grid_.setFocus();
}

void ConditionGrid::deleteRow() {
    const int active = grid_.activeCell().row;
    if (active < 1)
        return;
    for (int i = 1; i <= lastMovedRow; ++i) {
        if (active + i > grid_.maxRows())
            return;
        copyRow(active + i, active + i - 1);
    }
    grid_.setActiveCell(column::comparison, active);
    grid_.setFocus();
}

bool ConditionGrid::mayLeaveRow(int row, int newRow) {
    const auto isLine = [this](int line) { return line >= 1 && line <= grid_.maxRows(); };
    if (isLine(row) && conditions::IsFilterRowUsed(grid_, row)) {
        if (grid_.text(column::field, row).empty()) {
            host_.messages().warn(u"请选择过滤字段");
            return false;
        }
        if (newRow > row && grid_.text(column::logic, row).empty())
            grid_.setComboSelection(column::logic, row, 0);
    }
    // No blank line may be left between used ones.
    return newRow <= row || !isLine(newRow - 1) || conditions::IsFilterRowUsed(grid_, newRow - 1);
}

} // namespace orv::editor
