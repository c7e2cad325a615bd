#pragma once

#include "ui/Spread.h"
#include "windows/views/CellPopups.h"
#include "windows/views/GridLayout.h"
#include "windows/views/GridPainter.h"
#include "windows/views/StandardViews.h"

#include <optional>

namespace orv::windows {

/// The spreadsheet grid's window.
///
/// Keys: arrows, Home, End, Page Up, Page Down (Ctrl+Home, Ctrl+End: first and last cell of the grid), with Shift they
/// mark a block; Tab to the next cell and, where there is none to go to, out of the grid; Enter, which a host's dialog
/// may take for itself, to the next cell; F2 edits, F4 or Alt+Down opens the cell's list or calendar, Space switches a
/// check box; Delete, Ctrl+X, C, V and A empty, cut, copy, paste into and mark cells. Every key is told to the model as
/// well.
class GridView final : public NativeView<ui::Spread> {
  public:
    GridView(ui::Spread& model, std::shared_ptr<Dressing> dressing);
    ~GridView() override;

    bool wantsKey(const MSG& message) const override;
    bool takeKey(MSG& message) override;
    void redress() override;

    // For assistive programs: the cell's place on the screen, cut to what is in sight; empty beyond that.
    const ui::Spread& grid() const noexcept { return typed(); }
    const GridLayout& layout() const noexcept { return layout_; }
    RECT placeOnScreen(int column, int row) const;
    bool isReachable(int column, int row) const;
    bool isMarked(int column, int row) const;
    /// The cells of the marked block, row by row; the active cell where no block is marked.
    std::vector<ui::CellRef> selectedCells() const;
    std::u16string translated(std::u16string_view messageTemplate, std::u16string_view first = {}) const;
    std::u16string columnName(int column) const;
    std::u16string tableName() const;
    HRESULT standardParent(IDispatch** parent) const;
    /// Makes a cell current as a click does; false when a handler refuses.
    bool visit(int column, int row);
    /// What a double click does: switches a check box, opens a list or calendar, begins editing.
    void useCell();
    bool setCellText(int column, int row, const std::u16string& text);

  protected:
    void open(HWND parent) override;
    void showContent() override;
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void onFocus(bool has, HWND to) override;

  private:
    // GridView.cpp: drawing and scrolling
    void paint();
    void shapeChanged();
    void updateScrollBars();
    struct BarRange {
        int first, last, page, position;
    };
    void setBar(int bar, const BarRange& range);
    void layOut();
    void scrollTo(int topRow, int leftPx);
    void onScrollBar(int bar, WORD action);
    void onWheel(int delta);
    void onSideWheel(int delta);
    void cellUpdated(int column, int row);
    void activeCellChanged(int column, int row);
    void bringIntoSight(int column, int row);
    GridLook look() const;
    RECT onScreen(const RECT& client) const;

    // GridKeys.cpp
    bool onKey(WPARAM key);
    void onCharacter(char16_t letter);
    bool keyInList(WPARAM key);
    bool keyInGrid(WPARAM key, bool control, bool shift);
    bool keyThatMoves(WPARAM key, bool control, bool shift);
    bool keyOfClipboard(WPARAM key, bool control, bool shift);
    void beginComposition();
    /// The next cell in reading order that a user can go to; none behind the last one.
    std::optional<ui::CellRef> nextCell(bool forward) const;
    ui::CellRef edgeOfRow(int row, bool last) const;
    /// The cell beside another one; the same at the grid's edge.
    ui::CellRef cellBeside(ui::CellRef cell, int columns, int rows) const;
    void goTo(ui::CellRef cell);
    /// False when Tab is to lead out of the grid.
    bool goToNextCell(bool forward);
    void tab(bool forward);

    // GridMouse.cpp
    void onButtonDown(POINT at, bool doubleClick);
    void onMouseMove(POINT at);
    void markLines(ui::CellRef hit, POINT at);
    void markTo(POINT at);
    void sizeColumn(int column, int widthPx);
    /// As wide as its texts.
    void fitColumn(int column);
    void onButtonUp(POINT at);
    void endDrag();
    bool onSetCursor() const;

    // GridEditing.cpp
    void beginEdit(std::optional<std::u16string> text);
    void showEditor();
    /// Where the edit box of a cell stands: within its frame, beside its button.
    RECT editPlace(ui::CellRef cell) const;
    void dropEditor();
    /// Ends editing with the text typed; false when the cell refuses it and stays open.
    bool commit();
    void openPopup();
    void openList();
    void openCalendar();
    void closePopups();
    void choose(int position);
    /// The focus has gone to another control: what was typed is entered, or the focus comes back.
    void leave();

    // GridBlocks.cpp
    ui::CellSpan markedCells() const;
    void invalidateMarked();
    void mark(ui::CellRef from, ui::CellRef to);
    void unmark();
    void extendTo(int column, int row);
    void markAll();
    void copy() const;
    void cut();
    void paste();
    void clearMarked();
    bool enter(int column, int row, const std::u16string& text);
    std::size_t reachableIn(const ui::CellSpan& cells) const;

    // GridAccess.cpp
    LRESULT onGetObject(WPARAM wParam);
    /// Tells assistive programs of an event at a cell; 0, 0 is the grid.
    void tellAssistants(DWORD event, ui::CellRef cell);

    GridLayout layout_;
    GridMeasures measures_;
    int topRow_ = 1;
    int leftPx_ = 0;
    int wheel_ = 0;
    int columnsSeen_ = 0;
    int stretched_ = 0; ///< the column that takes the room that is left; 0 once the user has sized it
    ui::CellRef shownActive_{0, 0};
    bool reshapePending_ = false;
    bool measuring_ = false; ///< scroll bars are being set
    int draggedColumn_ = 0;
    int dragFrom_ = 0;
    int dragWidth_ = 0;
    bool pressing_ = false; ///< the button of a look-up

    /// Opposite corners of the marked block; none is the active cell alone.
    struct Block {
        ui::CellRef from, to;
    };
    std::optional<Block> block_;
    std::optional<ui::CellRef> markingFrom_; ///< while the mouse marks; row or column 0 for whole columns or rows
    int focusLosses_ = 0;
    bool leavePending_ = false;

    std::shared_ptr<CellEdit> edit_;
    std::shared_ptr<CellList> list_;
    std::shared_ptr<CellCalendar> calendar_;
    ui::CellRef edited_{0, 0};
    std::u16string editedText_;
    std::optional<std::u16string> firstText_;
    bool committing_ = false;
};

} // namespace orv::windows
