#pragma once

#include "ui/Control.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orv::ui {

/// Key codes that the rules name.
namespace key {
inline constexpr int f7 = 118;
} // namespace key

enum class CellType : std::uint8_t {
    edit,        ///< text, limited to `maxLength` characters
    comboBox,    ///< one of the items of the cell's list
    checkBox,    ///< text "1" or "0"
    staticText,  ///< shown, not edited
    wholeNumber, ///< a whole number within `minimum`..`maximum`
    decimal,     ///< a number with `decimals` places within `minimum`..`maximum`
    date,        ///< yyyy-mm-dd shown; the text is MMDDYYYY as stored
    time,        ///< HH:MM:SS shown; the text is HHMMSS as stored
};

/// How a cell is edited and shown. Value type: assign a whole format to a cell.
struct CellFormat {
    CellType type = CellType::edit;
    int maxLength = 0; ///< UTF-16 units; 0 is no limit
    double minimum = -999999999999.99;
    double maximum = 999999999999.99;
    int decimals = 0;
    std::u16string earliestDate; ///< MMDDYYYY, as date cells store it
    bool centred = false;
    friend bool operator==(const CellFormat&, const CellFormat&) = default;
};

struct CellSpan {
    int column = 0, row = 0, columns = 1, rows = 1;
    friend bool operator==(const CellSpan&, const CellSpan&) = default;
};

/// A cell position; columns and rows count from 1, row 0 is the header row, column 0 the row headers.
struct CellRef {
    int column = 1, row = 1;
    friend bool operator==(const CellRef&, const CellRef&) = default;
};

/// The model of a spreadsheet grid.
///
/// Setters are what code does; `user...` functions are what a user's action does, with the checks and events that
/// belong to it. Events are raised synchronously. Setting a check-box cell raises `buttonClicked` also from code, as
/// the direction pair of the sort grid relies on; choosing a combo item, editing and moving raise their events for the
/// user's actions only, because the control runs those handlers itself where it sets cells up.
/// Cells outside 0..maxRows x 0..maxCols raise AutomationError 5.
class Spread final : public Control {
  public:
    using Control::Control;
    std::u16string_view typeName() const override { return u"vaSpread"; }

    // Shape
    int maxRows() const noexcept { return maxRows_; }
    int maxCols() const noexcept { return maxCols_; }
    /// Cells beyond the new size lose their content.
    void setMaxRows(int rows);
    void setMaxCols(int columns);
    /// The last row that holds any text; 0 when none does.
    int dataRowCount() const;
    /// Width in characters of the grid's font; 0 hides nothing, see setColumnHidden.
    double columnWidth(int column) const;
    void setColumnWidth(int column, double characters);
    bool columnHidden(int column) const;
    void setColumnHidden(int column, bool hidden);
    /// Inserts `count` empty rows before `row`; the row count stays, so the last rows fall off.
    void insertRows(int row, int count);
    /// Deletes rows; empty rows come in at the end.
    void deleteRows(int row, int count);
    /// Moves a row with all that its cells hold; the rows between shift by one.
    void moveRow(int from, int to);

    // Content
    const std::u16string& text(int column, int row) const;
    /// The text of any cell; for a combo cell it selects the item of that text (-1 when there is none); for a
    /// check-box cell see setChecked.
    void setText(int column, int row, std::u16string text);
    /// The number that a cell's text stands for (0 when it is none).
    double number(int column, int row) const;
    bool isChecked(int column, int row) const { return text(column, row) == u"1"; }
    /// Sets a check-box cell and raises `buttonClicked` when it changes.
    void setChecked(int column, int row, bool checked);
    /// Empties the texts of a block of cells; formats, lists and spans stay.
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

    // Combo lists: items joined by tabs; a leading tab makes the first item empty.
    void setComboList(int column, int row, std::u16string_view tabbedItems);
    const std::vector<std::u16string>& comboItems(int column, int row) const;
    /// The selected position from 0, -1 when nothing is selected.
    int comboSelection(int column, int row) const;
    /// Selects without an event and sets the cell's text to the item's; -1 or a position beyond the list selects
    /// nothing and empties the text.
    void setComboSelection(int column, int row, int position);

    // Spans
    void addSpan(const CellSpan& span);
    /// Removes the span that begins at the cell, if any.
    void removeSpan(int column, int row);
    /// The span that covers a cell (its own single cell when none does).
    CellSpan spanAt(int column, int row) const;

    // Position
    CellRef activeCell() const noexcept { return active_; }
    /// Makes a cell current without asking leave-handlers.
    void setActiveCell(int column, int row);
    bool editMode() const noexcept { return editMode_; }
    void setEditMode(bool on);

    // What a user does
    /// Moves to a cell; `leaveCell` (and `leaveRow` when the row changes) may cancel. True when the move was made.
    bool userMoveTo(int column, int row);
    /// Types a text into a cell and confirms it: false (nothing changed) when the cell is locked, static, or its
    /// format refuses the text; otherwise the text is set (cut to the maximum length) and `cellChanged` raised.
    bool userType(int column, int row, std::u16string text);
    /// Picks an item of a combo cell: raises `comboSelectionChange`, then `cellChanged`.
    bool userChoose(int column, int row, int position);
    /// Clicks a check-box cell.
    bool userToggle(int column, int row);
    /// Clicks a cell: raises `click`, then moves there (row 0 and column 0 only raise the click).
    void userClick(int column, int row);
    void userKeyDown(int keyCode, int shift);

    Signal<int, int> comboSelectionChange;                ///< column, row
    Signal<int, int> cellChanged;                         ///< column, row: after the user has edited a cell
    Signal<int, int> buttonClicked;                       ///< column, row of a check-box cell
    Signal<int, int> click;                               ///< column, row
    Signal<int, int> keyDown;                             ///< key code, shift state
    Signal<int, int, int, int, bool&> leaveCell;          ///< column, row, new column, new row, cancel
    Signal<int, int, bool&> leaveRow;                     ///< row, new row, cancel
    Signal<int, int> cellUpdated;                         ///< column, row of a cell to repaint; 0, 0 is everything

  private:
    struct Cell {
        std::u16string text;
        CellFormat format;
        bool locked = false;
        std::optional<std::uint32_t> backColor;
        std::vector<std::u16string> items;
        int selection = -1;
    };
    struct Column {
        double width = 8.0;
        bool hidden = false;
    };
    void check(int column, int row) const;
    const Cell* find(int column, int row) const;
    Cell& at(int column, int row);

    int maxRows_ = 0;
    int maxCols_ = 0;
    // Row-major cells; a row is allocated when one of its cells is first written.
    std::vector<std::vector<Cell>> rows_;
    std::vector<Column> columns_;
    std::vector<CellSpan> spans_;
    CellRef active_;
    bool editMode_ = false;
};

} // namespace orv::ui
