#pragma once

#include "automation/Views.h"
#include "metadata/FieldCatalogue.h"
#include "metadata/HeaderBuild.h"
#include "metadata/PageSelection.h"
#include "ui/ControlArray.h"
#include "ui/Spread.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace orv::sortcols {

/// The column settings as a scheme keeps them: pair lists by field key.
struct ColumnLists {
    std::u16string ColWidth; ///< width in twips
    std::u16string ColHide;  ///< text of the shown cell
    std::u16string ColIndex; ///< row number
    friend bool operator==(const ColumnLists&, const ColumnLists&) = default;
};

/// The column display grid `vsHideColumn`: a row per field that the list may show, with the shown flag and the width
/// in millimetres; the rows' order is the columns' order.
class ColumnGrid {
  public:
    static constexpr int captionColumn = 1;
    static constexpr int secondCaptionColumn = 2;
    static constexpr int shownColumn = 3;
    static constexpr int widthColumn = 4;
    static constexpr int positionColumn = 5;
    static constexpr int keyColumn = 6;
    static constexpr int columnCount = 10;

    /// Greatest width in millimetres that a user may enter.
    static constexpr double maximumWidth = 150;

    /// The grid must outlive this object; `warn` shows a message box.
    ColumnGrid(ui::Spread& vsHideColumn, std::function<void(std::u16string_view)> warn);

    /// Sets shape and headings, once.
    void layOut();
    /// Fills the grid with the fields of the selected pages that the user may see. `accessTable` maps a field's
    /// access mask to 0 where the user may not; it may be absent.
    void fill(metadata::FieldCatalogue& catalogue, const metadata::PageSelection& pages,
              const automation::Dictionary& accessTable);
    /// Moves the current row one place; the first row when none is current. Nothing at the ends.
    void moveUp();
    void moveDown();
    void setAllShown(bool shown);
    /// The row that the user went to by mouse or keys; 0 without one.
    int currentRow() const noexcept { return currentRow_; }

    ColumnLists lists() const;
    /// Lays saved lists on the filled grid: rows in the order of their saved position, those that the lists do not
    /// know last, with their defaults. Keys that the grid does not hold are ignored.
    void applyLists(const ColumnLists& lists);

    /// The rows as the header build reads them.
    std::vector<metadata::ColumnSetting> settings() const;

  private:
    /// Rewrites the rows' texts so that row i + 1 holds what row `oldRow(i)` held.
    void reorder(const std::function<int(std::size_t)>& oldRow);
    void move(int step);
    void checkWidth(int row, bool& cancel);

    ui::Spread& grid_;
    std::function<void(std::u16string_view)> warn_;
    int currentRow_ = 0;
    ui::Subscription onClick_;
    ui::Subscription onActive_;
    ui::Subscription onLeave_;
};

} // namespace orv::sortcols
