#include "windows/views/GridView.h"

#include "automation/LocaleRules.h"
#include "support/Letters.h"
#include "windows/views/Clipboard.h"

#include <algorithm>

// Marked blocks of cells and the clipboard.
namespace orv::windows {

using ui::CellType;

namespace {

/// A cell holds one line, as its edit box does: line ends and tabs become blanks.
std::u16string onOneLine(std::u16string_view text) {
    std::u16string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool ends = text[i] == u'\r' || text[i] == u'\n' || text[i] == u'\t';
        if (text[i] != u'\r' || i + 1 == text.size() || text[i + 1] != u'\n')
            line += ends ? u' ' : text[i];
    }
    return line;
}

} // namespace

ui::CellSpan GridView::markedCells() const {
    const ui::CellRef active = typed().activeCell();
    const Block block = block_.value_or(Block{active, active});
    const int column = std::max(std::min(block.from.column, block.to.column), 1);
    const int row = std::max(std::min(block.from.row, block.to.row), 1);
    const int lastColumn = std::min(std::max(block.from.column, block.to.column), typed().maxCols());
    const int lastRow = std::min(std::max(block.from.row, block.to.row), typed().maxRows());
    if (active.column < 1 || active.row < 1 || lastColumn < column || lastRow < row)
        return {0, 0, 0, 0};
    return {column, row, lastColumn - column + 1, lastRow - row + 1};
}

void GridView::invalidateMarked() {
    const ui::CellSpan marked = markedCells();
    if (reshapePending_ || marked.columns < 1 || marked.column + marked.columns - 1 > layout_.columns())
        return;
    RECT r = layout_.blockRect(marked.column, marked.row, marked.columns, marked.rows);
    r.right = layout_.client().cx; // a span may reach beyond the block
    InvalidateRect(hwnd(), &r, FALSE);
}

void GridView::mark(ui::CellRef from, ui::CellRef to) {
    invalidateMarked();
    block_ = from == to ? std::nullopt : std::optional<Block>({from, to});
    invalidateMarked();
    tellAssistants(EVENT_OBJECT_SELECTIONWITHIN, {0, 0});
}

void GridView::unmark() {
    if (!block_)
        return;
    invalidateMarked();
    block_.reset();
}

void GridView::extendTo(int column, int row) {
    if (typed().maxCols() < 1 || typed().maxRows() < 1)
        return;
    const ui::CellRef from = block_ ? block_->from : typed().activeCell();
    const ui::CellSpan span =
        typed().spanAt(std::clamp(column, 1, typed().maxCols()), std::clamp(row, 1, typed().maxRows()));
    mark(from, {span.column, span.row});
    bringIntoSight(span.column, span.row);
}

void GridView::markAll() {
    if (typed().maxCols() > 0 && typed().maxRows() > 0)
        mark({1, 1}, {typed().maxCols(), typed().maxRows()});
}

bool GridView::isMarked(int column, int row) const {
    const ui::CellSpan marked = markedCells();
    return column >= marked.column && column < marked.column + marked.columns && row >= marked.row &&
           row < marked.row + marked.rows;
}

std::vector<ui::CellRef> GridView::selectedCells() const {
    const ui::CellSpan marked = markedCells();
    std::vector<ui::CellRef> cells;
    for (int row = marked.row; row < marked.row + marked.rows; ++row) {
        for (int column = marked.column; column < marked.column + marked.columns; ++column) {
            if (isReachable(column, row))
                cells.push_back({column, row});
        }
    }
    return cells;
}

void GridView::copy() const {
    const ui::CellSpan marked = markedCells();
    TextBlock block;
    for (int row = marked.row; row < marked.row + marked.rows; ++row) {
        block.emplace_back();
        for (int column = marked.column; column < marked.column + marked.columns; ++column) {
            if (isReachable(column, row))
                block.back().push_back(shownInCell(typed(), column, row));
        }
    }
    if (!block.empty())
        putOnClipboard(hwnd(), formatBlock(block));
}

void GridView::cut() {
    copy();
    clearMarked();
}

void GridView::clearMarked() {
    const auto alive = shared_from_this();
    const ui::CellSpan marked = markedCells();
    for (int row = marked.row; row < marked.row + marked.rows; ++row) {
        for (int column = marked.column; column < marked.column + marked.columns; ++column) {
            // An emptied cell may empty others, or change the grid's shape.
            if (!ready() || column > typed().maxCols() || row > typed().maxRows())
                return;
            if (isReachable(column, row) && !typed().text(column, row).empty())
                enter(column, row, {});
        }
    }
}

bool GridView::enter(int column, int row, const std::u16string& text) {
    if (!typed().editable(column, row))
        return false;
    switch (typed().cellType(column, row)) {
    case CellType::checkBox: {
        const double number = automation::localeRules().parseNumber(text).value_or(0);
        const bool wanted = number != 0 || support::equalIgnoringCase(text, u"TRUE");
        return wanted == typed().isChecked(column, row) || typed().userToggle(column, row);
    }
    case CellType::comboBox: {
        const std::u16string wanted(support::Trim(text));
        const auto& items = typed().comboItems(column, row);
        const auto found =
            std::ranges::find_if(items, [&](const std::u16string& item) { return captionOf(item) == wanted; });
        if (found != items.end())
            return typed().userChoose(column, row, static_cast<int>(found - items.begin()));
        return typed().userType(column, row, text);
    }
    default:
        return typed().userType(column, row, onOneLine(text));
    }
}

void GridView::paste() {
    const auto alive = shared_from_this();
    TextBlock block = parseBlock(textFromClipboard(hwnd()));
    const ui::CellSpan marked = markedCells();
    if (marked.columns < 1 || block.empty())
        return;
    // One text fills all marked cells, as spreadsheet programs do it.
    if (block_ && block.size() == 1 && block.front().size() == 1)
        block.assign(static_cast<std::size_t>(marked.rows),
                     std::vector<std::u16string>(reachableIn(marked), block.front().front()));
    bool refused = false;
    int row = marked.row;
    for (const auto& line : block) {
        int column = marked.column;
        for (const std::u16string& text : line) {
            // What an entry before has set up decides where this one goes: spans may have come or gone.
            while (ready() && column <= typed().maxCols() && row <= typed().maxRows() && !isReachable(column, row))
                ++column;
            if (!ready())
                return;
            const bool fits = column <= typed().maxCols() && row <= typed().maxRows();
            refused = !fits || !enter(column++, row, text) || refused;
        }
        ++row;
    }
    if (refused)
        MessageBeep(MB_ICONWARNING);
    if (ready() && marked.column <= typed().maxCols() && marked.row <= typed().maxRows())
        typed().userMoveTo(marked.column, marked.row);
}

std::size_t GridView::reachableIn(const ui::CellSpan& cells) const {
    std::size_t count = 0;
    for (int column = cells.column; column < cells.column + cells.columns; ++column)
        count += isReachable(column, cells.row) ? 1u : 0u;
    return count;
}

} // namespace orv::windows
