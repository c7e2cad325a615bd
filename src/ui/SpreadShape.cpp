#include "ui/Spread.h"

#include "automation/AutomationError.h"

#include <algorithm>
#include <utility>

// Size, columns, rows and spans of a grid.
namespace orv::ui {

using automation::AutomationError;
using automation::errorNumber::invalidCall;

void Spread::setMaxRows(int rows) {
    if (rows < 0)
        throw AutomationError::runtime(invalidCall);
    rows_.resize(static_cast<std::size_t>(rows) + 1);
    maxRows_ = rows;
    reshaped();
}

void Spread::setMaxCols(int columns) {
    if (columns < 0)
        throw AutomationError::runtime(invalidCall);
    const auto count = static_cast<std::size_t>(columns) + 1;
    columns_.resize(count);
    for (Row& cells : rows_) {
        if (!cells.empty())
            cells.resize(count);
    }
    maxCols_ = columns;
    reshaped();
}

/// Brings spans and the active cell back into the grid and has all of it repainted.
void Spread::reshaped() {
    spans_.clip(maxCols_, maxRows_);
    const auto alive = lifetime();
    activate({std::max(active_.column, 1), std::max(active_.row, 1)});
    if (!alive.expired())
        cellUpdated.raise(0, 0);
}

int Spread::dataRowCount() const {
    const auto holdsText = [](const Row& cells) {
        return !cells.empty() &&
               std::any_of(cells.begin() + 1, cells.end(), [](const Cell& c) { return !c.text.empty(); });
    };
    int row = maxRows_;
    while (row > 0 && !holdsText(rows_[static_cast<std::size_t>(row)]))
        --row;
    return row;
}

const Spread::Column& Spread::columnAt(int column) const {
    check(column, 0);
    return columns_[static_cast<std::size_t>(column)];
}

double Spread::columnWidth(int column) const {
    return columnAt(column).width;
}

void Spread::setColumnWidth(int column, double characters) {
    check(column, 0);
    columns_[static_cast<std::size_t>(column)].width = characters;
    cellUpdated.raise(0, 0);
}

bool Spread::columnHidden(int column) const {
    return columnAt(column).hidden;
}

void Spread::setColumnHidden(int column, bool hidden) {
    check(column, 0);
    columns_[static_cast<std::size_t>(column)].hidden = hidden;
    cellUpdated.raise(0, 0);
}

void Spread::checkRow(int row) const {
    if (row < 1 || row > maxRows_)
        throw AutomationError::runtime(invalidCall);
}

void Spread::insertRows(int row, int count) {
    checkRow(row);
    if (count < 0)
        throw AutomationError::runtime(invalidCall);
    count = std::min(count, maxRows_ - row + 1);
    const auto first = rows_.begin() + row;
    std::rotate(first, rows_.end() - count, rows_.end());
    std::fill(first, first + count, Row{});
    spans_.insertRows(row, count, maxRows_);
    rowsMoved();
}

void Spread::deleteRows(int row, int count) {
    checkRow(row);
    if (count < 0)
        throw AutomationError::runtime(invalidCall);
    count = std::min(count, maxRows_ - row + 1);
    const auto first = rows_.begin() + row;
    std::fill(first, first + count, Row{});
    std::rotate(first, first + count, rows_.end());
    spans_.deleteRows(row, count);
    rowsMoved();
}

void Spread::moveRow(int from, int to) {
    checkRow(from);
    checkRow(to);
    if (from == to)
        return;
    const auto begin = rows_.begin();
    if (from < to)
        std::rotate(begin + from, begin + from + 1, begin + to + 1);
    else
        std::rotate(begin + to, begin + from, begin + from + 1);
    spans_.moveRow(from, to);
    rowsMoved();
}

/// After rows have changed places: the edited content is elsewhere, and the active cell may be covered by a span now.
void Spread::rowsMoved() {
    const auto alive = lifetime();
    setEditMode(false);
    if (!alive.expired())
        reshaped();
}

void Spread::addSpan(const CellSpan& span) {
    check(span.column, span.row);
    check(span.lastColumn(), span.lastRow());
    const bool mixesHeaders = (span.row == 0 && span.rows > 1) || (span.column == 0 && span.columns > 1);
    if (span.columns < 1 || span.rows < 1 || mixesHeaders)
        throw AutomationError::runtime(invalidCall);
    spans_.add(span);
    const auto alive = lifetime();
    activate(active_);
    if (!alive.expired())
        cellUpdated.raise(0, 0);
}

void Spread::removeSpan(int column, int row) {
    check(column, row);
    spans_.removeAt(column, row);
    cellUpdated.raise(0, 0);
}

CellSpan Spread::spanAt(int column, int row) const {
    check(column, row);
    return spans_.at(column, row);
}

} // namespace orv::ui
