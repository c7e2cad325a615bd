#include "sortcols/SortGrid.h"

#include "automation/Coercion.h"
#include "support/FlagScope.h"
#include "support/Letters.h"
#include "support/PaddedItem.h"
#include "support/PairList.h"
#include "support/Pieces.h"

#include <algorithm>
#include <unordered_set>

namespace orv::sortcols {

using ui::CellType;

namespace {

/// Mark of a sort field in the key maps, where no stronger one stands.
constexpr std::int32_t sortKeyMark = 2;

void enterKey(const automation::Dictionary& map, const std::u16string& key) {
    if (map && !map.exists(key))
        map.set(key, sortKeyMark);
}

void dropTrailingComma(std::u16string& text) {
    if (text.ends_with(u','))
        text.pop_back();
}

} // namespace

std::u16string sortItem(std::u16string_view caption, std::u16string_view key) {
    std::u16string item(caption);
    item.append(support::captionWidth, u' ');
    item += key;
    return item;
}

SortGrid::SortGrid(ui::Spread& vsOrder) : grid_(vsOrder) {
    onCombo_ = grid_.comboSelectionChange.subscribe([this](int column, int row) {
        if (column == fieldColumn)
            fieldChanged(row);
    });
    onButton_ = grid_.buttonClicked.subscribe([this](int column, int row) { directionClicked(column, row); });
}

void SortGrid::layOut() {
    grid_.setMaxRows(rowCount);
    grid_.setMaxCols(descendingColumn);
    grid_.setText(fieldColumn, 0, u"排序字段");
    grid_.setText(ascendingColumn, 0, u"升序");
    grid_.setText(descendingColumn, 0, u"降序");
    grid_.setColumnWidth(fieldColumn, 30);
    for (const int column : {ascendingColumn, descendingColumn})
        grid_.setColumnWidth(column, 11);
    for (int row = 1; row <= rowCount; ++row) {
        grid_.setFormat(fieldColumn, row, ui::plainFormat(CellType::comboBox));
        hideDirections(row);
    }
}

void SortGrid::setFieldList(const std::u16string& items) {
    grid_.setColumnComboList(fieldColumn, items);
}

std::u16string SortGrid::fieldKey(int row) const {
    const std::u16string_view text = grid_.text(fieldColumn, row);
    if (text.size() <= support::captionWidth)
        return {};
    return std::u16string(support::Trim(text.substr(support::captionWidth)));
}

void SortGrid::directionClicked(int column, int row) {
    if (settingDirections_ || (column != ascendingColumn && column != descendingColumn))
        return;
    const support::FlagScope setting(settingDirections_);
    grid_.setChecked(ascendingColumn, row, false);
    grid_.setChecked(descendingColumn, row, false);
    if (!support::Trim(grid_.text(fieldColumn, row)).empty())
        grid_.setChecked(column, row, true);
}

void SortGrid::fieldChanged(int row) {
    const std::u16string& text = grid_.text(fieldColumn, row);
    if (support::Trim(text).empty()) {
        hideDirections(row);
        return;
    }
    for (int other = 1; other <= grid_.maxRows(); ++other) {
        if (other != row && grid_.text(fieldColumn, other) == text) {
            hideDirections(row);
            grid_.setComboSelection(fieldColumn, row, 0);
            return;
        }
    }
    showDirections(row);
}

void SortGrid::showDirections(int row) {
    grid_.setFormat(ascendingColumn, row, ui::plainFormat(CellType::checkBox));
    grid_.setFormat(descendingColumn, row, ui::plainFormat(CellType::checkBox));
    if (grid_.number(ascendingColumn, row) == 0 && grid_.number(descendingColumn, row) == 0)
        grid_.setChecked(ascendingColumn, row, true);
}

void SortGrid::hideDirections(int row) {
    for (const int column : {ascendingColumn, descendingColumn}) {
        grid_.setFormat(column, row, ui::plainFormat(CellType::staticText));
        grid_.setText(column, row, u"");
    }
}

void SortGrid::clearAll() {
    for (int row = 1; row <= grid_.maxRows(); ++row) {
        grid_.setText(fieldColumn, row, u"");
        fieldChanged(row);
    }
}

std::u16string SortGrid::orderBy() const {
    std::u16string list;
    for (int row = 1; row <= grid_.maxRows(); ++row) {
        if (const std::u16string key = fieldKey(row); !key.empty())
            support::appendPair(list, key, grid_.text(ascendingColumn, row));
    }
    return list;
}

std::vector<std::u16string> SortGrid::loadOrderBy(std::u16string_view orderBy) {
    std::vector<std::u16string> notOffered;
    clearAll();
    int row = 1;
    support::PieceReader pairs(orderBy, support::schemeSeparator);
    for (std::u16string_view pair; pairs.next(pair) && row <= grid_.maxRows();) {
        const std::u16string_view key = pair.substr(0, pair.find(u'='));
        if (key.empty())
            continue;
        const auto& items = grid_.comboItems(fieldColumn, row);
        const auto item = std::ranges::find_if(items, [key](std::u16string_view text) {
            return text.size() > support::captionWidth && support::Trim(text.substr(support::captionWidth)) == key;
        });
        if (item == items.end()) {
            notOffered.emplace_back(key);
            continue;
        }
        grid_.setComboSelection(fieldColumn, row, static_cast<int>(item - items.begin()));
        fieldChanged(row);
        if (fieldKey(row).empty())
            continue; // the field stands in an earlier row already
        const bool ascending = support::storedNumber(support::GetPiece(pair, 2, u"=")) != 0;
        grid_.setChecked(ascending ? ascendingColumn : descendingColumn, row, true);
        ++row;
    }
    return notOffered;
}

void appendSortStrings(const ui::Spread& vsOrder, const SortGrid& sortGrid, metadata::FieldCatalogue& catalogue,
                       const automation::Dictionary& allKeys, const automation::Dictionary& idKeys,
                       std::u16string& headSort, std::u16string& entrySort) {
    std::unordered_set<std::u16string> handled;
    for (int row = 1; row <= vsOrder.maxRows(); ++row) {
        const std::u16string key = sortGrid.fieldKey(row);
        if (key.empty())
            continue;
        const metadata::FieldRef field = catalogue.fieldByKey(key);
        enterKey(allKeys, field->text(metadata::fieldKey::key));
        enterKey(idKeys, field->text(metadata::fieldKey::key));
        const std::u16string name = field->text(metadata::fieldKey::fieldNameExt);
        if (!handled.insert(name).second)
            continue;
        const std::u16string_view direction =
            vsOrder.number(SortGrid::ascendingColumn, row) != 0 ? u" ASC " : u" DESC ";
        const bool header = field->text(metadata::fieldKey::page) == u"1";
        // A header name that the text already holds, even within a longer one, is passed over; an entry name never.
        if (header && headSort.find(name) != std::u16string::npos)
            continue;
        std::u16string& target = header ? headSort : entrySort;
        target += name;
        target += u' ';
        target += direction;
        target += u',';
    }
    if (!handled.empty()) {
        dropTrailingComma(headSort);
        dropTrailingComma(entrySort);
    }
}

} // namespace orv::sortcols
