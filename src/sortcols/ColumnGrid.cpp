#include "sortcols/ColumnGrid.h"

#include "automation/Coercion.h"
#include "support/PairList.h"
#include "support/Pieces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace orv::sortcols {

using metadata::FieldRef;
using ui::CellType;
namespace fieldKey = metadata::fieldKey;

namespace {

/// 1000 twips.
constexpr const char16_t* usualWidth = u"17.64";

/// The container's scale: 1440 twips an inch, 25.4 millimetres an inch.
constexpr double twipsPerMillimetre = 1440.0 / 25.4;

/// Millimetres as the width cells show them: two decimal places.
std::u16string widthText(double millimetres) {
    const double hundredths = std::nearbyint(millimetres * 100);
    return automation::numberToText(hundredths / 100);
}

/// A width in whole twips, ties to even. The user may have typed any number, which must not keep schemes from being
/// saved.
std::int32_t twipsOf(double millimetres) {
    constexpr double most = std::numeric_limits<std::int32_t>::max();
    return automation::roundToInt32(std::clamp(millimetres * twipsPerMillimetre, -most, most));
}

/// What the access table says of masks; each mask is asked once.
class AccessTable {
  public:
    explicit AccessTable(const automation::Dictionary& table) : table_(table) {}
    bool hides(const metadata::FieldRecord& field) {
        if (!table_)
            return false;
        const std::u16string mask = field.text(fieldKey::accessMask);
        const auto [entry, isNew] = known_.try_emplace(mask, false);
        if (isNew && table_.exists(mask))
            entry->second = automation::toInt32(table_.get(mask)) == 0;
        return entry->second;
    }

  private:
    automation::Dictionary table_;
    std::unordered_map<std::u16string, bool> known_;
};

/// A field is hidden only by an "FVisible" that says so.
bool isInvisible(const metadata::FieldRecord& field) {
    return !field.value(fieldKey::visible).isEmpty() && !field.flag(fieldKey::visible);
}

} // namespace

ColumnGrid::ColumnGrid(ui::Spread& vsHideColumn, std::function<void(std::u16string_view)> warn)
    : grid_(vsHideColumn), warn_(std::move(warn)) {
    onClick_ =
        grid_.click.subscribe([this](int, int row) { currentRow_ = row >= 1 && row <= grid_.maxRows() ? row : 0; });
    // Keys go to a row, too, and the buttons must then move the row that the user sees marked.
    onActive_ = grid_.activeCellChanged.subscribe([this](int, int row) { currentRow_ = row; });
    onLeave_ = grid_.leaveCell.subscribe([this](int column, int row, int, int, bool& cancel) {
        if (column == widthColumn && row >= 1)
            checkWidth(row, cancel);
    });
}

void ColumnGrid::layOut() {
    static constexpr const char16_t* titles[columnCount] = {u"第一行标题",
                                                            u"第二行标题",
                                                            u"显示",
                                                            u"宽度(毫米)",
                                                            u"索引:主要是用来更新系统数据",
                                                            u"对齐方式",
                                                            u"对应的字段名",
                                                            u"对应的字段的别名",
                                                            u"对应的库表名",
                                                            u"库表别名"};
    grid_.setMaxRows(0);
    grid_.setMaxCols(columnCount);
    for (int column = 1; column <= columnCount; ++column)
        grid_.setText(column, 0, titles[column - 1]);
    grid_.setColumnWidth(captionColumn, 22);
    grid_.setColumnWidth(secondCaptionColumn, 16);
    grid_.setColumnWidth(shownColumn, 7);
    grid_.setColumnWidth(widthColumn, 12);
    // What the user has no use for: positions, keys and names of the database.
    for (int column = positionColumn; column <= columnCount; ++column)
        grid_.setColumnHidden(column, true);
}

void ColumnGrid::fill(metadata::FieldCatalogue& catalogue, const metadata::PageSelection& pages,
                      const automation::Dictionary& accessTable) {
    struct Column {
        std::u16string caption;
        std::u16string key;
    };
    // Asked first: the host may fail, or have the grid filled while it answers.
    std::vector<Column> columns;
    AccessTable access(accessTable);
    for (std::int32_t position = 1; position <= catalogue.count(); ++position) {
        const FieldRef field = catalogue.field(position);
        if (!access.hides(*field) && !isInvisible(*field) && pages.contains(field->text(fieldKey::page)))
            columns.push_back({field->text(fieldKey::caption), field->text(fieldKey::key)});
    }

    grid_.setMaxRows(0);
    grid_.setMaxRows(static_cast<int>(columns.size()));
    int row = 0;
    for (Column& column : columns) {
        ++row;
        for (const int col : {captionColumn, secondCaptionColumn})
            grid_.setFormat(col, row, ui::plainFormat(CellType::staticText));
        grid_.setText(captionColumn, row, std::u16string(support::GetPiece(column.caption, 1, u"+")));
        grid_.setText(secondCaptionColumn, row, std::u16string(support::GetPiece(column.caption, 2, u"+")));
        grid_.setFormat(shownColumn, row, ui::plainFormat(CellType::checkBox));
        grid_.setText(shownColumn, row, u"1");
        grid_.setText(widthColumn, row, usualWidth);
        grid_.setFormat(positionColumn, row, ui::plainFormat(CellType::wholeNumber));
        grid_.setText(positionColumn, row, automation::numberToText(row));
        grid_.setText(keyColumn, row, std::move(column.key));
    }
    if (row > 0)
        grid_.setActiveCell(captionColumn, 1);
    currentRow_ = 0;
}

void ColumnGrid::checkWidth(int row, bool& cancel) {
    if (grid_.number(widthColumn, row) <= maximumWidth)
        return;
    cancel = true;
    warn_(u"列的宽度不应该大于150毫米，请重新输入。");
    if (row > grid_.maxRows())
        return; // the host has filled the grid anew while the message stood
    grid_.setText(widthColumn, row, automation::numberToText(maximumWidth));
    grid_.setEditMode(true);
}

void ColumnGrid::moveUp() {
    move(-1);
}

void ColumnGrid::moveDown() {
    move(1);
}

void ColumnGrid::move(int step) {
    if (currentRow_ == 0)
        currentRow_ = 1;
    const int target = currentRow_ + step;
    if (currentRow_ > grid_.maxRows() || target < 1 || target > grid_.maxRows())
        return;
    grid_.moveRow(currentRow_, target);
    currentRow_ = target;
    grid_.setActiveCell(grid_.activeCell().column, target);
}

void ColumnGrid::setAllShown(bool shown) {
    for (int row = 1; row <= grid_.maxRows(); ++row)
        grid_.setChecked(shownColumn, row, shown);
}

ColumnLists ColumnGrid::lists() const {
    ColumnLists lists;
    for (int row = 1; row <= grid_.maxRows(); ++row) {
        const std::u16string& key = grid_.text(keyColumn, row);
        support::appendPair(lists.ColWidth, key, twipsOf(grid_.number(widthColumn, row)));
        support::appendPair(lists.ColHide, key, grid_.text(shownColumn, row));
        support::appendPair(lists.ColIndex, key, row);
    }
    return lists;
}

void ColumnGrid::applyLists(const ColumnLists& lists) {
    struct Row {
        double savedPosition = 0;
        bool saved = false;
        int row = 0;
    };
    support::PairIndex positions(lists.ColIndex);
    support::PairIndex shownFlags(lists.ColHide);
    support::PairIndex widths(lists.ColWidth);
    std::vector<Row> order;
    for (int row = 1; row <= grid_.maxRows(); ++row) {
        const std::u16string key = grid_.text(keyColumn, row);
        const std::u16string_view position = positions.value(key);
        order.push_back({support::storedNumber(position), !position.empty(), row});
        if (const std::u16string_view shown = shownFlags.value(key); !shown.empty())
            grid_.setText(shownColumn, row, support::storedNumber(shown) != 0 ? u"1" : u"0");
        if (const std::u16string_view twips = widths.value(key); !twips.empty())
            grid_.setText(widthColumn, row, widthText(support::storedNumber(twips) / twipsPerMillimetre));
    }
    std::ranges::stable_sort(order, [](const Row& a, const Row& b) {
        return a.saved != b.saved ? a.saved : a.saved && a.savedPosition < b.savedPosition;
    });
    reorder([&order](std::size_t i) { return order[i].row; });
}

void ColumnGrid::reorder(const std::function<int(std::size_t)>& oldRow) {
    const auto rows = static_cast<std::size_t>(grid_.maxRows());
    std::vector<std::array<std::u16string, columnCount>> texts(rows);
    for (std::size_t i = 0; i < rows; ++i)
        for (int column = 1; column <= columnCount; ++column)
            texts[i][static_cast<std::size_t>(column - 1)] = grid_.text(column, oldRow(i));
    for (std::size_t i = 0; i < rows; ++i)
        for (int column = 1; column <= columnCount; ++column)
            grid_.setText(column, static_cast<int>(i) + 1, std::move(texts[i][static_cast<std::size_t>(column - 1)]));
}

std::vector<metadata::ColumnSetting> ColumnGrid::settings() const {
    std::vector<metadata::ColumnSetting> result;
    result.reserve(static_cast<std::size_t>(grid_.maxRows()));
    for (int row = 1; row <= grid_.maxRows(); ++row)
        result.push_back(
            {grid_.text(keyColumn, row), grid_.number(shownColumn, row) != 0, grid_.number(widthColumn, row)});
    return result;
}

} // namespace orv::sortcols
