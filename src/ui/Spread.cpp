#include "ui/Spread.h"

#include "automation/AutomationError.h"
#include "automation/LocaleRules.h"

#include <algorithm>
#include <utility>

// What code does with a grid; the user's actions are in SpreadUser.cpp, rows and columns in SpreadShape.cpp.
namespace orv::ui {

using automation::AutomationError;
using automation::errorNumber::invalidCall;

namespace {

std::vector<std::u16string> splitAtTabs(std::u16string_view tabbed) {
    std::vector<std::u16string> items;
    if (tabbed.empty())
        return items;
    for (std::size_t tab = 0; (tab = tabbed.find(u'\t')) != std::u16string_view::npos; tabbed.remove_prefix(tab + 1))
        items.emplace_back(tabbed.substr(0, tab));
    items.emplace_back(tabbed);
    return items;
}

int positionOf(const std::vector<std::u16string>& items, std::u16string_view text) {
    const auto item = std::ranges::find(items, text);
    return item == items.end() ? -1 : static_cast<int>(item - items.begin());
}

const std::vector<std::u16string> noItems;

} // namespace

bool Spread::inGrid(int column, int row) const noexcept {
    return column >= 0 && column <= maxCols_ && row >= 0 && row <= maxRows_;
}

void Spread::check(int column, int row) const {
    if (!inGrid(column, row))
        throw AutomationError::runtime(invalidCall);
}

const Spread::Cell* Spread::find(int column, int row) const {
    check(column, row);
    const Row& cells = rows_[static_cast<std::size_t>(row)];
    return cells.empty() ? nullptr : &cells[static_cast<std::size_t>(column)];
}

Spread::Cell& Spread::at(int column, int row) {
    check(column, row);
    Row& cells = rows_[static_cast<std::size_t>(row)];
    if (cells.empty())
        cells.resize(static_cast<std::size_t>(maxCols_) + 1);
    return cells[static_cast<std::size_t>(column)];
}

// Content

const std::u16string& Spread::text(int column, int row) const {
    static const std::u16string none;
    const Cell* cell = find(column, row);
    return cell ? cell->text : none;
}

std::u16string Spread::shownText(int column, int row) const {
    return shownFromStored(format(column, row), text(column, row));
}

void Spread::setText(int column, int row, std::u16string text) {
    if (cellType(column, row) == CellType::checkBox) {
        const bool blank = text.find_first_not_of(u' ') == std::u16string::npos;
        const bool checked = automation::localeRules().parseNumber(text).value_or(0) != 0;
        storeCheckText(column, row, blank ? u"" : checked ? u"1" : u"0");
        return;
    }
    Cell& cell = at(column, row);
    cell.text = std::move(text);
    cell.selection = cell.items ? positionOf(*cell.items, cell.text) : -1;
    cellUpdated.raise(column, row);
}

double Spread::number(int column, int row) const {
    return automation::localeRules().parseNumber(text(column, row)).value_or(0);
}

void Spread::setChecked(int column, int row, bool checked) {
    storeCheckText(column, row, checked ? u"1" : u"0");
}

void Spread::storeCheckText(int column, int row, std::u16string text) {
    Cell& cell = at(column, row);
    const bool wasChecked = cell.text == u"1";
    cell.text = std::move(text);
    const bool clicked = cellType(column, row) == CellType::checkBox && (cell.text == u"1") != wasChecked;
    const auto alive = lifetime();
    cellUpdated.raise(column, row);
    if (clicked && !alive.expired())
        buttonClicked.raise(column, row);
}

void Spread::clearText(int column, int row, int column2, int row2) {
    check(column, row);
    check(column2, row2);
    const auto [firstColumn, lastColumn] = std::minmax(column, column2);
    const auto [firstRow, lastRow] = std::minmax(row, row2);
    for (int r = firstRow; r <= lastRow; ++r) {
        Row& cells = rows_[static_cast<std::size_t>(r)];
        for (int c = firstColumn; c <= lastColumn && !cells.empty(); ++c) {
            Cell& cell = cells[static_cast<std::size_t>(c)];
            cell.text.clear();
            cell.selection = -1;
        }
    }
    cellUpdated.raise(0, 0);
}

// Format

const CellFormat& Spread::format(int column, int row) const {
    static const CellFormat standard;
    const Cell* cell = find(column, row);
    return cell && cell->format ? *cell->format : standard;
}

void Spread::setFormat(int column, int row, CellFormat format) {
    Cell& cell = at(column, row);
    if (format.type != CellType::comboBox) {
        cell.items = nullptr;
        cell.selection = -1;
    }
    cell.format = format == CellFormat{} ? nullptr : formats_.share(std::move(format));
    const auto alive = lifetime();
    cellUpdated.raise(column, row);
    if (!alive.expired())
        endEditIfNotEditable(column, row);
}

bool Spread::locked(int column, int row) const {
    const Cell* cell = find(column, row);
    return cell && cell->locked;
}

void Spread::setLocked(int column, int row, bool locked) {
    at(column, row).locked = locked;
    endEditIfNotEditable(column, row);
}

std::optional<std::uint32_t> Spread::cellBackColor(int column, int row) const {
    const Cell* cell = find(column, row);
    return cell ? cell->backColor : std::nullopt;
}

void Spread::setCellBackColor(int column, int row, std::optional<std::uint32_t> color) {
    at(column, row).backColor = color;
    cellUpdated.raise(column, row);
}

bool Spread::editable(int column, int row) const {
    return enabled() && column >= 1 && row >= 1 && !locked(column, row) &&
           cellType(column, row) != CellType::staticText;
}

// Combo lists

Spread::ItemList Spread::shareItems(std::u16string_view tabbedItems) {
    return tabbedItems.empty() ? nullptr : lists_.share(splitAtTabs(tabbedItems));
}

void Spread::storeItems(int column, int row, ItemList items) {
    if (cellType(column, row) != CellType::comboBox) {
        if (items)
            throw AutomationError::runtime(invalidCall);
        return;
    }
    Cell& cell = at(column, row);
    cell.items = std::move(items);
    cell.selection = cell.items ? positionOf(*cell.items, cell.text) : -1;
    if (cell.selection < 0 && !format(column, row).freeText)
        cell.text.clear();
    cellUpdated.raise(column, row);
}

void Spread::setComboList(int column, int row, std::u16string_view tabbedItems) {
    check(column, row);
    storeItems(column, row, shareItems(tabbedItems));
}

void Spread::setColumnComboList(int column, std::u16string_view tabbedItems) {
    check(column, 0);
    const ItemList items = shareItems(tabbedItems);
    const auto alive = lifetime();
    for (int row = 1; !alive.expired() && inGrid(column, row); ++row)
        storeItems(column, row, items);
}

const std::vector<std::u16string>& Spread::comboItems(int column, int row) const {
    const Cell* cell = find(column, row);
    return cell && cell->items ? *cell->items : noItems;
}

int Spread::comboSelection(int column, int row) const {
    const Cell* cell = find(column, row);
    return cell ? cell->selection : -1;
}

void Spread::setComboSelection(int column, int row, int position) {
    if (cellType(column, row) == CellType::comboBox)
        storeSelection(column, row, position);
    else if (position >= 0)
        throw AutomationError::runtime(invalidCall);
}

void Spread::storeSelection(int column, int row, int position) {
    Cell& cell = at(column, row);
    const auto& items = cell.items ? *cell.items : noItems;
    const bool exists = position >= 0 && position < static_cast<int>(items.size());
    cell.selection = exists ? position : -1;
    cell.text = exists ? items[static_cast<std::size_t>(position)] : std::u16string();
    cellUpdated.raise(column, row);
}

// Position

CellRef Spread::spanOrigin(int column, int row) const {
    const CellSpan span = spans_.at(column, row);
    return {span.column, span.row};
}

void Spread::setActiveCell(int column, int row) {
    if (column < 1 || row < 1 || column > std::max(maxCols_, 1) || row > std::max(maxRows_, 1))
        throw AutomationError::runtime(invalidCall);
    activate({column, row});
}

void Spread::activate(CellRef target) {
    target = spanOrigin(std::min(target.column, maxCols_), std::min(target.row, maxRows_));
    if (target == active_)
        return;
    active_ = target;
    const auto alive = lifetime();
    if (std::exchange(editMode_, false))
        editModeChanged.raise(false);
    // A handler that went elsewhere has told so already.
    if (!alive.expired() && active_ == target)
        activeCellChanged.raise(target.column, target.row);
}

void Spread::setEditMode(bool on) {
    const bool begins = on && editable(active_.column, active_.row);
    if (std::exchange(editMode_, begins) != begins)
        editModeChanged.raise(begins);
}

void Spread::endEditIfNotEditable(int column, int row) {
    if (editMode_ && active_ == CellRef{column, row} && !editable(column, row))
        setEditMode(false);
}

} // namespace orv::ui
