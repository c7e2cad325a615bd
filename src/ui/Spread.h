#pragma once

#include "ui/CellFormat.h"
#include "ui/CellSpans.h"
#include "ui/Control.h"
#include "ui/SharedValues.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv::ui {

/// Key codes that the rules name.
namespace key {
inline constexpr int f7 = 118;
} // namespace key

/// A cell position; columns and rows count from 1, row 0 is the header row, column 0 the row headers.
struct CellRef {
    int column = 1, row = 1;
    friend bool operator==(const CellRef&, const CellRef&) = default;
};

/// The model of a spreadsheet grid.
///
/// Setters are what code does; `user...` functions are what a user's action does, with the checks and events that
/// belong to it; they do nothing in a disabled grid. Events are raised synchronously. Setting a check-box cell raises
/// `buttonClicked` also from code, as the direction pair of the sort grid relies on; choosing a combo item, editing and
/// moving raise their events for the user's actions only, because the control runs those handlers itself where it sets
/// cells up. Handlers may change, resize or destroy the grid.
///
/// Cells outside 0..maxRows x 0..maxCols raise AutomationError 5. References to texts, formats and lists hold until the
/// grid next changes. A user's action on a cell that a span covers goes to the span's first cell.
///
/// `changed` tells of the control's own properties; content and shape are told by `cellUpdated`.
class Spread : public Control {
  public:
    using Control::Control;
    std::u16string_view typeName() const override { return u"vaSpread"; }

    // Shape. A negative size raises AutomationError 5.
    int maxRows() const noexcept { return maxRows_; }
    int maxCols() const noexcept { return maxCols_; }
    /// Cells beyond the new size lose their content, spans are cut, the active cell is brought into range.
    void setMaxRows(int rows);
    void setMaxCols(int columns);
    /// The last row that holds any text beside its header; 0 when none does.
    int dataRowCount() const;
    /// Width in characters of the grid's font; 0 hides nothing, see setColumnHidden.
    double columnWidth(int column) const;
    void setColumnWidth(int column, double characters);
    bool columnHidden(int column) const;
    void setColumnHidden(int column, bool hidden);

    // Rows as a whole: 1..maxRows (AutomationError 5), the row header goes with its row. The active cell keeps its
    // position; editing ends. What becomes of spans: see CellSpans.
    /// Inserts `count` empty rows before `row`; the row count stays, so the last rows fall off.
    void insertRows(int row, int count);
    /// Deletes rows; empty rows come in at the end.
    void deleteRows(int row, int count);
    /// Moves a row with all that its cells hold; the rows between shift by one.
    void moveRow(int from, int to);

    // Content
    const std::u16string& text(int column, int row) const;
    /// The text to show for a cell: as stored, but yyyy-mm-dd in a date cell and HH:MM:SS in a time cell.
    std::u16string shownText(int column, int row) const;
    /// The text of any cell, unchecked. A combo cell selects the first item of that text (-1 when there is none); a
    /// check-box cell stores "" for a blank text, else "1" for a number other than 0 and "0" for the rest, and raises
    /// `buttonClicked` when its state changes.
    void setText(int column, int row, std::u16string text);
    /// The number that a cell's text stands for by the locale's rules (0 when it is none).
    double number(int column, int row) const;
    bool isChecked(int column, int row) const { return text(column, row) == u"1"; }
    /// Sets a cell to "1" or "0"; a check-box cell raises `buttonClicked` when its state changes ("" to "0" is none).
    void setChecked(int column, int row, bool checked);
    /// Empties the texts of a block of cells without an event, unselects combo cells; formats, lists and spans stay.
    /// The corners may be given in any order.
    void clearText(int column, int row, int column2, int row2);

    // Format
    const CellFormat& format(int column, int row) const;
    /// A combo cell keeps its list only while it stays one; other content stays.
    void setFormat(int column, int row, CellFormat format);
    CellType cellType(int column, int row) const { return format(column, row).type; }
    bool locked(int column, int row) const;
    void setLocked(int column, int row, bool locked);
    std::optional<std::uint32_t> cellBackColor(int column, int row) const;
    void setCellBackColor(int column, int row, std::optional<std::uint32_t> color);
    /// Whether a user can change the cell: no header, not locked, not static, the grid enabled.
    bool editable(int column, int row) const;

    // Combo lists: items joined by tabs; a leading tab makes the first item empty; "" is a list without items.
    // Only combo cells have one: giving another cell items, or selecting one there, raises AutomationError 5.
    /// Replaces the list. The selection goes to the item of the cell's text; without one nothing is selected, and the
    /// text is emptied unless the format is free text.
    void setComboList(int column, int row, std::u16string_view tabbedItems);
    /// Gives the cells of a column one list, from row 1 to the last; the text is read once for all of them.
    void setColumnComboList(int column, std::u16string_view tabbedItems);
    const std::vector<std::u16string>& comboItems(int column, int row) const;
    /// The selected position from 0, -1 when nothing is selected.
    int comboSelection(int column, int row) const;
    /// Selects without an event and sets the cell's text to the item's; -1 or a position beyond the list selects
    /// nothing and empties the text.
    void setComboSelection(int column, int row, int position);

    // Spans
    /// Adds a span; spans that it overlaps go. AutomationError 5 when it leaves the grid or mixes header and body.
    void addSpan(const CellSpan& span);
    /// Removes the span that begins at the cell, if any.
    void removeSpan(int column, int row);
    /// The span that covers a cell (its own single cell when none does).
    CellSpan spanAt(int column, int row) const;

    // Position
    /// The current cell, never a header or one that a span covers; row 0 in a grid without rows, column 0 without
    /// columns.
    CellRef activeCell() const noexcept { return active_; }
    /// Makes a cell current without asking leave-handlers; editing ends. A header cell raises AutomationError 5; in a
    /// grid without rows or columns, 1 is taken for the missing row or column.
    void setActiveCell(int column, int row);
    bool editMode() const noexcept { return editMode_; }
    /// Begins or ends editing of the active cell; it does not begin in a cell that is not editable.
    void setEditMode(bool on);

    // What a user does
    /// Moves to a cell; `leaveCell` (and `leaveRow` when the row changes) may cancel. True when the move was made
    /// or the cell was current already. Nothing moves to a header, to a hidden column, to a cell that a leave handler
    /// made vanish, or while a leave handler runs: a message box in one takes the focus away and would have the handler
    /// asked again.
    bool userMoveTo(int column, int row);
    /// Ends what the user is typing as confirming it would, then asks `leaveCell`, with -1, -1 for the new cell: the
    /// user goes to another control. The active cell stays. False when the cell refuses the text, which then goes on
    /// being edited, or when the handler cancels.
    bool userLeave();
    /// The same where an edit is under way, else nothing: for whoever is about to read the grid.
    bool finishEdit() { return !editMode_ || userLeave(); }
    /// Types a text into a cell and confirms it: false (nothing changed) when the cell is not editable or its format
    /// refuses the text (see storedFromTyped); otherwise the text is set and `cellChanged` raised. In a combo cell the
    /// text picks its item as by userChoose, "" unselects, and others are refused unless the format is free text.
    bool userType(int column, int row, std::u16string text);
    /// Picks an item of an editable combo cell, -1 for none: raises `comboSelectionChange`, then `cellChanged` if the
    /// cell is still there. False for another cell or a position beyond the list.
    bool userChoose(int column, int row, int position);
    /// Clicks an editable check-box cell: it changes and raises `buttonClicked`. False for another cell.
    bool userToggle(int column, int row);
    /// Clicks a cell: raises `click`, then moves there (row 0 and column 0 only raise the click). A click beside all
    /// cells is one at 0, 0.
    void userClick(int column, int row);
    /// Presses a key in the grid.
    void userKeyDown(int keyCode, int shift);

    Signal<int, int> comboSelectionChange;       ///< column, row
    Signal<int, int> cellChanged;                ///< column, row: after the user has edited a cell
    Signal<int, int> buttonClicked;              ///< column, row of a check-box cell
    Signal<int, int> click;                      ///< column, row
    Signal<int, int> keyDown;                    ///< key code, shift state
    Signal<int, int, int, int, bool&> leaveCell; ///< column, row, new column, new row (-1, -1: none), cancel
    Signal<int, int, bool&> leaveRow;            ///< row, new row, cancel
    Signal<int, int> cellUpdated;                ///< column, row of a cell to repaint; 0, 0 is everything
    Signal<int, int> activeCellChanged;          ///< column, row
    Signal<bool> editModeChanged;                ///< editing of the active cell has begun or ended
    /// Whoever holds the text that is being typed is to enter it by `userType`, and to set the argument when the cell
    /// refuses it.
    Signal<bool&> confirmEdit;

  private:
    /// The lists and formats are shared between cells; null is no list, the default format.
    using ItemList = std::shared_ptr<const std::vector<std::u16string>>;
    struct Cell {
        std::u16string text;
        std::shared_ptr<const CellFormat> format;
        ItemList items;
        int selection = -1;
        std::optional<std::uint32_t> backColor;
        bool locked = false;
    };
    using Row = std::vector<Cell>;
    struct Column {
        double width = 8.0;
        bool hidden = false;
    };
    void check(int column, int row) const;
    void checkRow(int row) const;
    const Column& columnAt(int column) const;
    const Cell* find(int column, int row) const;
    Cell& at(int column, int row);
    void storeCheckText(int column, int row, std::u16string text);
    ItemList shareItems(std::u16string_view tabbedItems);
    void storeItems(int column, int row, ItemList items);
    void storeSelection(int column, int row, int position);
    void reshaped();
    void rowsMoved();
    void activate(CellRef target);
    void endEditIfNotEditable(int column, int row);
    bool inGrid(int column, int row) const noexcept;
    CellRef spanOrigin(int column, int row) const;
    bool askToLeave(CellRef target);

    int maxRows_ = 0;
    int maxCols_ = 0;
    // Row by row; the cells of a row are allocated when one of them is first written.
    std::vector<Row> rows_ = std::vector<Row>(1);
    std::vector<Column> columns_ = std::vector<Column>(1);
    CellSpans spans_;
    SharedValues<CellFormat> formats_;
    SharedValues<std::vector<std::u16string>> lists_;
    CellRef active_{0, 0};
    bool editMode_ = false;
    bool leaving_ = false;
};

} // namespace orv::ui
