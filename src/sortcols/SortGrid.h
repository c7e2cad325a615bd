#pragma once

#include "automation/Views.h"
#include "metadata/FieldCatalogue.h"
#include "ui/Spread.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orv::sortcols {

/// The sort grid `vsOrder`: a field in column 1, and an option pair of ascending (2) and descending (3) check boxes
/// for each row that has one.
class SortGrid {
  public:
    static constexpr int rowCount = 30;
    static constexpr int fieldColumn = 1;
    static constexpr int ascendingColumn = 2;
    static constexpr int descendingColumn = 3;

    /// The grid must outlive this object.
    explicit SortGrid(ui::Spread& vsOrder);

    /// Sets shape, headings and cell types, once.
    void layOut();
    /// The field drop-down of every row: items joined by tabs, as sortItem makes them.
    void setFieldList(const std::u16string& items);
    /// The field key that a row holds, "" without one.
    std::u16string fieldKey(int row) const;
    /// The row's field was chosen or cleared.
    void fieldChanged(int row);
    /// Empties every row.
    void clearAll();

    /// The rows that hold a field, as a scheme keeps them: key=ascending, in row order.
    std::u16string orderBy() const;
    /// Lays a scheme's rows on the grid. Keys that are not offered are passed over and returned.
    std::vector<std::u16string> loadOrderBy(std::u16string_view orderBy);

  private:
    void directionClicked(int column, int row);
    void showDirections(int row);
    void hideDirections(int row);

    ui::Spread& grid_;
    bool settingDirections_ = false;
    ui::Subscription onCombo_;
    ui::Subscription onButton_;
};

/// One item of the field drop-down: the caption, exactly 255 blanks, the field key.
std::u16string sortItem(std::u16string_view caption, std::u16string_view key);

/// Appends the ORDER BY lists of the header page and of the entry pages to the two texts and enters the keys of the
/// fields into both key maps. Without a chosen field the texts stay untouched.
void appendSortStrings(const ui::Spread& vsOrder, const SortGrid& sortGrid, metadata::FieldCatalogue& catalogue,
                       const automation::Dictionary& allKeys, const automation::Dictionary& idKeys,
                       std::u16string& headSort, std::u16string& entrySort);

} // namespace orv::sortcols
