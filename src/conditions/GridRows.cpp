#include "conditions/GridRows.h"

#include "automation/NumberText.h"

#include <algorithm>

namespace orv::conditions {

namespace {

using ui::CellType;
using ui::Spread;

bool isDigits(std::u16string_view text, std::size_t count) {
    return text.size() == count && std::ranges::all_of(text, [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

void appendDateValue(std::u16string& out, std::u16string_view dateCell) {
    if (!isDigits(dateCell, 8)) {
        out += dateCell;
        return;
    }
    out += dateCell.substr(4, 4);
    out += u'-';
    out += dateCell.substr(0, 2);
    out += u'-';
    out += dateCell.substr(2, 2);
}

void appendDateTimeValue(std::u16string& out, std::u16string_view dateCell, std::u16string_view timeCell) {
    if (dateCell.empty())
        return;
    appendDateValue(out, dateCell);
    if (timeCell.empty())
        timeCell = u"000000";
    out += u' ';
    if (!isDigits(timeCell, 6)) {
        out += timeCell;
        return;
    }
    out += timeCell.substr(0, 2);
    out += u':';
    out += timeCell.substr(2, 2);
    out += u':';
    out += timeCell.substr(4, 2);
}

/// Reads a line's value cell as the translation takes it into a text that is used again and again.
void readCellValue(const Spread& grid, int line, std::u16string& value) {
    value.clear();
    const std::u16string& text = grid.text(gridColumn::value, line);
    switch (grid.cellType(gridColumn::value, line)) {
    case CellType::wholeNumber:
    case CellType::decimal:
        // An untouched cell holds no number: it must be refused, not compared with 0.
        if (!text.empty())
            automation::appendNumber(value, grid.number(gridColumn::value, line));
        break;
    case CellType::date:
        if (grid.cellType(gridColumn::valueTime, line) == CellType::time)
            appendDateTimeValue(value, text, grid.text(gridColumn::valueTime, line));
        else
            appendDateValue(value, text);
        break;
    default:
        value = text;
        break;
    }
}

void readRow(const Spread& grid, int line, ConditionRow& row) {
    row.FLeft = grid.text(gridColumn::left, line);
    row.FRight = grid.text(gridColumn::right, line);
    readCellValue(grid, line, row.FValue);
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
    std::u16string text;
    appendDateValue(text, dateCell);
    return text;
}

std::u16string dateTimeValue(std::u16string_view dateCell, std::u16string_view timeCell) {
    std::u16string text;
    appendDateTimeValue(text, dateCell, timeCell);
    return text;
}

} // namespace orv::conditions
