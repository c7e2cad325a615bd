#include "ui/CellSpans.h"

#include <algorithm>

namespace orv::ui {

namespace {

bool overlap(const CellSpan& a, const CellSpan& b) {
    return a.column <= b.lastColumn() && b.column <= a.lastColumn() && a.row <= b.lastRow() && b.row <= a.lastRow();
}

bool isSpan(const CellSpan& span) {
    return span.columns >= 1 && span.rows >= 1 && span.columns * span.rows > 1;
}

} // namespace

void CellSpans::add(const CellSpan& span) {
    std::erase_if(spans_, [&](const CellSpan& other) { return overlap(other, span); });
    if (isSpan(span))
        spans_.push_back(span);
}

void CellSpans::removeAt(int column, int row) {
    std::erase_if(spans_, [=](const CellSpan& span) { return span.column == column && span.row == row; });
}

CellSpan CellSpans::at(int column, int row) const {
    const auto found = std::ranges::find_if(spans_, [=](const CellSpan& span) { return span.covers(column, row); });
    return found == spans_.end() ? CellSpan{column, row, 1, 1} : *found;
}

void CellSpans::clip(int maxColumns, int maxRows) {
    for (CellSpan& span : spans_) {
        span.columns = std::min(span.columns, maxColumns - span.column + 1);
        span.rows = std::min(span.rows, maxRows - span.row + 1);
    }
    std::erase_if(spans_, [](const CellSpan& span) { return !isSpan(span); });
}

void CellSpans::insertRows(int row, int count, int maxRows) {
    for (CellSpan& span : spans_) {
        if (span.row >= row)
            span.row += count;
        else if (span.lastRow() >= row)
            span.rows += count;
        span.rows = std::min(span.rows, maxRows - span.row + 1);
    }
    std::erase_if(spans_, [](const CellSpan& span) { return !isSpan(span); });
}

void CellSpans::deleteRows(int row, int count) {
    const int behind = row + count;
    for (CellSpan& span : spans_) {
        const int lost = std::max(0, std::min(span.lastRow() + 1, behind) - std::max(span.row, row));
        if (span.row >= behind)
            span.row -= count;
        else if (span.row > row)
            span.row = row;
        span.rows -= lost;
    }
    std::erase_if(spans_, [](const CellSpan& span) { return !isSpan(span); });
}

void CellSpans::moveRow(int from, int to) {
    const auto moved = [=](int row) {
        if (row == from)
            return to;
        if (from < row && row <= to)
            return row - 1;
        if (to <= row && row < from)
            return row + 1;
        return row;
    };
    std::erase_if(spans_, [&](const CellSpan& span) {
        for (int row = span.row; row < span.lastRow(); ++row) {
            if (moved(row + 1) != moved(row) + 1)
                return true;
        }
        return false;
    });
    for (CellSpan& span : spans_)
        span.row = moved(span.row);
}

} // namespace orv::ui
