#include "conditions/GridRows.h"

#include "automation/Coercion.h"

#include <algorithm>

namespace orv::conditions {

namespace {

using ui::CellType;
using ui::Spread;

bool isDigits(std::u16string_view text, std::size_t count) {
    return text.size() == count && std::ranges::all_of(text, [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

/// The value of a line's value cell as the translation takes it.
std::u16string cellValue(const Spread& grid, int line) {
    const std::u16string& text = grid.text(gridColumn::value, line);
    switch (grid.cellType(gridColumn::value, line)) {
    case CellType::wholeNumber:
    case CellType::decimal:
        // An untouched cell holds no number: it must be refused, not compared with 0.
        return text.empty() ? text : automation::numberToText(grid.number(gridColumn::value, line));
    case CellType::date:
        if (grid.cellType(gridColumn::valueTime, line) == CellType::time)
            return dateTimeValue(text, grid.text(gridColumn::valueTime, line));
        return dateValue(text);
    default:
        return text;
    }
}

void readRow(const Spread& grid, int line, ConditionRow& row) {
    row.FLeft = grid.text(gridColumn::left, line);
    row.FRight = grid.text(gridColumn::right, line);
    row.FValue = cellValue(grid, line);
    row.FValueIndex.reset();
    if (grid.cellType(gridColumn::value, line) == CellType::comboBox)
        row.FValueIndex = grid.comboSelection(gridColumn::value, line);
    if (line < grid.maxRows()) {
        row.FLogicIndex = grid.comboSelection(gridColumn::logic, line);
        row.FLogic = *row.FLogicIndex == 0 ? u" AND " : u" OR ";
    }
}

} // namespace

bool IsFilterRowUsed(const Spread& vsFilter, int gridRow) {
    for (int column = 1; column <= vsFilter.maxCols(); ++column)
        if (!vsFilter.text(column, gridRow).empty())
            return true;
    return false;
}

void readRows(const Spread& vsFilter, std::vector<ConditionRow>& rows) {
    int lastUsed = vsFilter.maxRows();
    while (lastUsed > static_cast<int>(rows.size()) && !IsFilterRowUsed(vsFilter, lastUsed))
        --lastUsed;
    while (static_cast<int>(rows.size()) < lastUsed)
        rows.push_back(NewConditionRow());
    for (int line = 1; line <= lastUsed; ++line)
        readRow(vsFilter, line, rows[static_cast<std::size_t>(line - 1)]);
}

std::u16string dateValue(std::u16string_view dateCell) {
    if (!isDigits(dateCell, 8))
        return std::u16string(dateCell);
    std::u16string text;
    text.reserve(10);
    text += dateCell.substr(4, 4);
    text += u'-';
    text += dateCell.substr(0, 2);
    text += u'-';
    text += dateCell.substr(2, 2);
    return text;
}

std::u16string dateTimeValue(std::u16string_view dateCell, std::u16string_view timeCell) {
    std::u16string text = dateValue(dateCell);
    if (text.empty())
        return text;
    if (timeCell.empty())
        timeCell = u"000000";
    text += u' ';
    if (!isDigits(timeCell, 6)) {
        text += timeCell;
        return text;
    }
    text += timeCell.substr(0, 2);
    text += u':';
    text += timeCell.substr(2, 2);
    text += u':';
    text += timeCell.substr(4, 2);
    return text;
}

} // namespace orv::conditions
