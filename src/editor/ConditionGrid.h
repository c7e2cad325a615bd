#pragma once

#include "automation/Trace.h"
#include "conditions/ConditionRow.h"
#include "conditions/ConditionText.h"
#include "conditions/GridRows.h"
#include "editor/Comparisons.h"
#include "editor/ValueCell.h"
#include "editor/ValueLists.h"
#include "metadata/FieldCatalogue.h"
#include "ui/Messages.h"
#include "ui/Spread.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orv::editor {

namespace column = conditions::gridColumn;

/// What the condition grid asks of the control.
class ConditionGridHost {
  public:
    virtual ~ConditionGridHost() = default;
    /// The catalogue and the comparisons of the current data service; null without one.
    virtual std::shared_ptr<metadata::FieldCatalogue> catalogue() = 0;
    virtual std::shared_ptr<Comparisons> comparisons() = 0;
    /// Whether the page of a field is among those selected.
    virtual bool onSelectedPage(const metadata::FieldRecord& field) = 0;
    virtual ValueListSource valueListSource() = 0;
    virtual DecimalPlaces decimalPlaces() = 0;
    virtual ui::Messages& messages() = 0;
    /// Where the grid's events are noted; null for nowhere.
    virtual std::shared_ptr<automation::Trace> currentTrace() { return nullptr; }
    /// What a user need not confirm.
    virtual void log(std::u16string_view text) = 0;
};

/// What becomes of the line of a condition whose field is not offered any more.
enum class MissingField : bool {
    leavesLineEmpty, ///< as a stored scheme loads
    dropsLine,       ///< the lines below close up, as a change of pages does
};

/// The condition grid `vsFilter`: its layout, and how the cells of a line and its condition row move together.
class ConditionGrid {
  public:
    /// Lines of the grid.
    static constexpr int rowCount = 30;
    using Rows = std::vector<conditions::ConditionRow>;

    /// Both must outlive the grid.
    ConditionGrid(ui::Spread& vsFilter, ConditionGridHost& host);

    /// Sets shape, headings and cell types, once.
    void layOut();
    /// The field drop-down of every line: items joined by tabs, as fieldList makes them.
    void setFieldList(const std::u16string& items);

    /// The condition rows, one per touched line. Kept by whoever works on them while the host is called.
    std::shared_ptr<Rows> rows() const noexcept { return rows_; }
    /// Drops all condition rows.
    void forgetRows() { rows_ = std::make_shared<Rows>(); }

    /// What happens when a line's field (column 2) or comparison (column 3) was chosen or cleared.
    void comboSelectionChange(int column, int row);
    /// Empties a line: its texts, its record and the shape of its value area.
    void clearRow(int row);
    /// Empties every line.
    void clearAll();
    /// Inserts an empty line above the active one; the last line's content is lost. Nothing on the last line.
    void insertRow();
    /// Deletes the active line; the lines below move up, the last one keeps its content.
    void deleteRow();

    /// The conditions as a scheme keeps them; lines without a field are left out.
    std::u16string conditionText() const;
    /// Clears the grid and lays the conditions of a text on its first lines, brackets, comparisons and values
    /// included; a blank text changes nothing. A condition whose field is not offered any more is left out: the host's
    /// diagnostics learn of each, since the filter has become wider by it.
    void loadConditionText(std::u16string_view text, MissingField missing = MissingField::leavesLineEmpty);

    /// The guard of a move between lines; false cancels it.
    bool mayLeaveRow(int row, int newRow);

    /// The position in the select list of the field that a line holds; 0 without one.
    std::int32_t fieldPosition(int row) const;

  private:
    conditions::ConditionRow& grow(int row);
    /// After a user's choice the cell where the value goes becomes the active one. Lines that code sets up leave the
    /// user where he is: what he presses next acts on the active line.
    void goToValue(int column, int row);
    void fieldChanged(int row);
    void fieldCleared(int row);
    void copyRow(int from, int to);
    void loadRecord(const conditions::ConditionRecord& record, std::int32_t position, int row);
    void fillComparisons(int row, const automation::Value& condition);
    void comparisonChanged(int row);
    void setUpValueCell(int position, int row);
    void resetValueArea(int row);
    void applyShape(const ValueCellShape& shape, const conditions::CompareEntry& entry,
                    const metadata::FieldRecord& field, int row);

    ui::Spread& grid_;
    ConditionGridHost& host_;
    std::shared_ptr<Rows> rows_ = std::make_shared<Rows>();
    ui::Subscription onCombo_;
    ui::Subscription onLeaveRow_;
};

/// One item of the field drop-downs: the caption padded to 255 characters and the field's position.
std::u16string fieldItem(std::u16string_view caption, std::int32_t position);

} // namespace orv::editor
