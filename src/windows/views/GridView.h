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
/// Keys: arrows, Home, End, Page Up, Page Down (with Ctrl: first and last cell of the grid), Tab and Enter to the next
/// cell, Ctrl+Tab out of the grid, F2 edits, F4 or Alt+Down opens the cell's list or calendar, Delete empties the cell,
/// Space switches a check box, Ctrl+X, C and V cut, copy and paste. Every key is told to the model as well.
class GridView final : public NativeView<ui::Spread> {
  public:
    GridView(ui::Spread& model, std::shared_ptr<Dressing> dressing);
    ~GridView() override;

    bool wantsKey(const MSG& message) const override;
    void redress() override;

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
    void scrollTo(int topRow, int leftPx);
    void onScrollBar(int bar, WORD action);
    void onWheel(int delta);
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
    /// The next cell in reading order that a user can go to; none behind the last one.
    std::optional<ui::CellRef> nextCell(bool forward) const;
    bool isReachable(int column, int row) const;
    void goTo(int column, int row);
    void goAlong(int columns, int rows);
    bool goToNextCell(bool forward);

    // GridMouse.cpp
    void onButtonDown(POINT at, bool doubleClick);
    void onMouseMove(POINT at);
    void endDrag();
    bool onSetCursor() const;

    // GridEditing.cpp
    void beginEdit(std::optional<std::u16string> text);
    void showEditor();
    void dropEditor();
    /// Ends editing with the text typed; false when the cell refuses it and stays open.
    bool commit();
    void openPopup();
    void openList();
    void openCalendar();
    void closePopups();
    void choose(int position);
    void copy() const;
    void cut();
    void paste();
    void clearCell();
    bool enter(int column, int row, const std::u16string& text);

    GridLayout layout_;
    GridMeasures measures_;
    int topRow_ = 1;
    int leftPx_ = 0;
    int wheel_ = 0;
    int columnsSeen_ = 0;
    int stretched_ = 0; ///< the column that takes the room that is left; 0 once the user has sized it
    ui::CellRef shownActive_{0, 0};
    bool reshapePending_ = false;
    int draggedColumn_ = 0;
    int dragFrom_ = 0;
    int dragWidth_ = 0;

    std::shared_ptr<CellEdit> edit_;
    std::shared_ptr<CellList> list_;
    std::shared_ptr<CellCalendar> calendar_;
    ui::CellRef edited_{0, 0};
    std::u16string editedText_;
    std::optional<std::u16string> firstText_;
    bool committing_ = false;
};

} // namespace orv::windows
