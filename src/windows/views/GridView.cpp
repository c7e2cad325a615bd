#include "windows/views/GridView.h"

#include "support/FlagScope.h"

#include <windowsx.h>

#include <imm.h>

#include <algorithm>

namespace orv::windows {

namespace {

/// Has the grid measured again once the current event is over: a reload raises thousands of updates.
constexpr UINT reshapeMessage = WM_APP + 1;

/// The focus has gone: a message box about it, if there is one, must wait until the other window has it.
constexpr UINT leaveMessage = WM_APP + 2;

POINT pointOf(LPARAM position) {
    return {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
}

} // namespace

GridView::GridView(ui::Spread& model, std::shared_ptr<Dressing> dressing) : NativeView(model, std::move(dressing)) {}

GridView::~GridView() {
    destroy();
}

void GridView::open(HWND parent) {
    Creation how;
    how.style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_TABSTOP | WS_BORDER;
    how.parent = parent;
    create(how);
    keep(typed().cellUpdated.subscribe([this](int column, int row) { cellUpdated(column, row); }));
    keep(typed().activeCellChanged.subscribe([this](int column, int row) { activeCellChanged(column, row); }));
    keep(typed().editModeChanged.subscribe([this](bool on) {
        if (on)
            showEditor();
        else
            dropEditor();
    }));
    keep(typed().confirmEdit.subscribe([this](bool& refused) { refused = !commit() || refused; }));
    shownActive_ = typed().activeCell();
}

void GridView::redress() {
    closePopups();
    if (handle()) {
        const WindowDc dc(hwnd());
        const Selected font(dc.get(), dressing().font.get());
        measures_ = GridMeasures::of(dc.get(), dressing().look.dpi, typed().maxRows());
    }
    NativeView::redress();
}

void GridView::showContent() {
    shapeChanged();
}

GridLook GridView::look() const {
    const HWND focus = GetFocus();
    return {dressing().font.get(), dressing().look.dpi, isWithin(hwnd(), focus), typed().enabled(),
            block_ ? markedCells() : ui::CellSpan{0, 0, 0, 0}};
}

RECT GridView::onScreen(const RECT& client) const {
    RECT r = client;
    MapWindowPoints(hwnd(), nullptr, reinterpret_cast<POINT*>(&r), 2);
    return r;
}

void GridView::shapeChanged() {
    reshapePending_ = false;
    if (!ready())
        return;
    updateScrollBars();
    InvalidateRect(hwnd(), nullptr, FALSE);
    if (edit_) {
        const RECT r = editPlace(edited_);
        SetWindowPos(edit_->hwnd(), nullptr, static_cast<int>(r.left), static_cast<int>(r.top),
                     static_cast<int>(r.right - r.left), static_cast<int>(r.bottom - r.top),
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void GridView::updateScrollBars() {
    // A bar that comes or goes changes the client area, and the window is told so in the midst of this.
    if (measuring_)
        return;
    const support::FlagScope measuring(measuring_);
    if (columnsSeen_ != typed().maxCols()) {
        columnsSeen_ = typed().maxCols();
        stretched_ = widestColumn(typed());
    }
    // Each bar takes room that the other one's need depends on. In turns, and never both by the same layout: that could
    // go round for ever.
    for (int round = 0; round < 2; ++round) {
        layOut();
        setBar(SB_VERT, {1, std::max(layout_.rows(), 1), layout_.wholeRows(), layout_.topRow()});
        layOut();
        const int room = static_cast<int>(layout_.client().cx) - measures_.rowHeaderWidth;
        setBar(SB_HORZ, {0, std::max(layout_.columnsWidth() - 1, 0), std::max(room, 1), layout_.leftPx()});
    }
    layOut();
}

void GridView::setBar(int bar, const BarRange& range) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = range.first;
    info.nMax = range.last;
    info.nPage = static_cast<UINT>(range.page);
    info.nPos = range.position;
    SetScrollInfo(hwnd(), bar, &info, TRUE);
}

void GridView::layOut() {
    RECT client;
    GetClientRect(hwnd(), &client);
    layout_ = GridLayout(typed(), measures_, {client.right, client.bottom}, stretched_, topRow_, leftPx_);
    topRow_ = layout_.topRow();
    leftPx_ = layout_.leftPx();
}

void GridView::cellUpdated(int column, int row) {
    if (!ready())
        return;
    if (row > 0 && shownActive_ == ui::CellRef{column, row})
        tellAssistants(EVENT_OBJECT_VALUECHANGE, {column, row});
    if (column == 0 && row == 0) {
        if (!reshapePending_)
            reshapePending_ = PostMessageW(hwnd(), reshapeMessage, 0, 0) != FALSE;
        return;
    }
    if (reshapePending_ || column > layout_.columns())
        return; // all of it is drawn again
    RECT r =
        row == 0 ? RECT{0, 0, layout_.client().cx, measures_.headerHeight} : layout_.cellRect(typed(), column, row);
    InvalidateRect(hwnd(), &r, FALSE);
}

void GridView::activeCellChanged(int column, int row) {
    if (!ready())
        return;
    closePopups();
    if (!reshapePending_ && shownActive_.column <= layout_.columns() && shownActive_.row <= typed().maxRows()) {
        for (const ui::CellRef& cell : {shownActive_, ui::CellRef{column, row}}) {
            if (cell.column < 1 || cell.row < 1)
                continue;
            RECT r = layout_.cellRect(typed(), cell.column, cell.row);
            r.left = 0; // with the row's header
            InvalidateRect(hwnd(), &r, FALSE);
        }
    }
    shownActive_ = {column, row};
    unmark();
    if (isWithin(hwnd(), GetFocus()))
        tellAssistants(EVENT_OBJECT_FOCUS, shownActive_);
    if (reshapePending_)
        updateScrollBars(); // the place of the cell depends on the new shape
    bringIntoSight(column, row);
}

void GridView::bringIntoSight(int column, int row) {
    if (column < 1 || row < 1 || column > layout_.columns())
        return;
    int top = topRow_;
    if (row < top)
        top = row;
    else if (row >= top + layout_.wholeRows())
        top = row - layout_.wholeRows() + 1;
    const RECT r = layout_.cellRect(typed(), column, row);
    const RECT body = layout_.body();
    LONG left = leftPx_;
    if (r.right > body.right)
        left += r.right - body.right;
    if (r.left - (left - leftPx_) < body.left)
        left = leftPx_ + r.left - body.left;
    scrollTo(top, static_cast<int>(left));
}

void GridView::scrollTo(int topRow, int leftPx) {
    topRow = std::clamp(topRow, 1, layout_.lastTopRow());
    leftPx = std::clamp(leftPx, 0, layout_.lastLeftPx());
    const int dy = (topRow_ - topRow) * measures_.rowHeight;
    const int dx = leftPx_ - leftPx;
    if (dx == 0 && dy == 0)
        return;
    closePopups();
    topRow_ = topRow;
    leftPx_ = leftPx;
    // What stays in sight is moved, not drawn again; headers move along one way only.
    const RECT body = layout_.body();
    const RECT rows{0, body.top, body.right, body.bottom};
    const RECT columns{body.left, 0, body.right, body.bottom};
    if (dy != 0)
        ScrollWindowEx(hwnd(), 0, dy, &rows, &rows, nullptr, nullptr, SW_INVALIDATE);
    if (dx != 0)
        ScrollWindowEx(hwnd(), dx, 0, &columns, &columns, nullptr, nullptr, SW_INVALIDATE);
    // Not drawn at once: steps that follow each other faster than the screen are drawn together.
    layout_ = GridLayout(typed(), measures_, layout_.client(), stretched_, topRow_, leftPx_);
    if (dy != 0)
        SetScrollPos(hwnd(), SB_VERT, topRow_, TRUE);
    if (dx != 0)
        SetScrollPos(hwnd(), SB_HORZ, leftPx_, TRUE);
    if (edit_)
        shapeChanged();
}

void GridView::onScrollBar(int bar, WORD action) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(hwnd(), bar, &info);
    const int line = bar == SB_VERT ? 1 : 3 * measures_.characterWidth;
    int to = info.nPos;
    switch (action) {
    case SB_LINEUP:
        to -= line;
        break;
    case SB_LINEDOWN:
        to += line;
        break;
    case SB_PAGEUP:
        to -= static_cast<int>(info.nPage);
        break;
    case SB_PAGEDOWN:
        to += static_cast<int>(info.nPage);
        break;
    case SB_TOP:
        to = info.nMin;
        break;
    case SB_BOTTOM:
        to = info.nMax;
        break;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        to = info.nTrackPos;
        break;
    default:
        return;
    }
    scrollTo(bar == SB_VERT ? to : topRow_, bar == SB_HORZ ? to : leftPx_);
}

void GridView::onWheel(int delta) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL)
        lines = static_cast<UINT>(layout_.wholeRows());
    wheel_ += delta * static_cast<int>(lines);
    const int rows = wheel_ / WHEEL_DELTA;
    wheel_ -= rows * WHEEL_DELTA;
    scrollTo(topRow_ - rows, leftPx_);
}

void GridView::onSideWheel(int delta) {
    scrollTo(topRow_, leftPx_ + MulDiv(delta, 3 * measures_.characterWidth, WHEEL_DELTA));
}

void GridView::paint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(hwnd(), &paint);
    if (!IsRectEmpty(&paint.rcPaint)) {
        const BackBuffer buffer(dc, paint.rcPaint);
        paintGrid(buffer.dc(), {0, 0}, paint.rcPaint, typed(), layout_, look());
    }
    EndPaint(hwnd(), &paint);
}

void GridView::onFocus(bool has, HWND to) {
    if (!ready())
        return;
    if (!has && !isWithin(hwnd(), to)) {
        ++focusLosses_;
        closePopups();
        if (to && !leavePending_)
            leavePending_ = PostMessageW(hwnd(), leaveMessage, 0, 0) != FALSE;
    }
    if (block_)
        invalidateMarked();
    if (has && GetFocus() == hwnd())
        tellAssistants(EVENT_OBJECT_FOCUS, typed().activeCell());
    const ui::CellRef active = typed().activeCell();
    if (active.column >= 1 && active.row >= 1 && active.column <= layout_.columns()) {
        const RECT r = layout_.cellRect(typed(), active.column, active.row);
        InvalidateRect(hwnd(), &r, FALSE);
    }
}

LRESULT GridView::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!ready())
        return pass(message, wParam, lParam);
    switch (message) {
    case WM_PAINT:
        paint();
        return 0;
    case WM_PRINTCLIENT: {
        RECT client;
        GetClientRect(hwnd(), &client);
        paintGrid(reinterpret_cast<HDC>(wParam), {0, 0}, client, typed(), layout_, look());
        return 0;
    }
    case WM_ERASEBKGND:
        return 1;
    case reshapeMessage:
        shapeChanged();
        return 0;
    case leaveMessage:
        leavePending_ = false;
        leave();
        return 0;
    case WM_GETOBJECT:
        return static_cast<LONG>(lParam) == OBJID_CLIENT ? onGetObject(wParam) : pass(message, wParam, lParam);
    case WM_SIZE:
        shapeChanged();
        return 0;
    case WM_VSCROLL:
        onScrollBar(SB_VERT, LOWORD(wParam));
        return 0;
    case WM_HSCROLL:
        onScrollBar(SB_HORZ, LOWORD(wParam));
        return 0;
    case WM_MOUSEWHEEL:
        if (list_)
            return SendMessageW(list_->hwnd(), message, wParam, lParam);
        onWheel(GET_WHEEL_DELTA_WPARAM(wParam));
        return 0;
    case WM_MOUSEHWHEEL:
        onSideWheel(GET_WHEEL_DELTA_WPARAM(wParam));
        return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        onButtonDown(pointOf(lParam), message == WM_LBUTTONDBLCLK);
        return 0;
    case WM_MOUSEMOVE:
        onMouseMove(pointOf(lParam));
        return 0;
    case WM_LBUTTONUP:
        onButtonUp(pointOf(lParam));
        return 0;
    case WM_CAPTURECHANGED:
        pressing_ = false;
        endDrag();
        return 0;
    case WM_SETCURSOR:
        return LOWORD(lParam) == HTCLIENT && onSetCursor() ? TRUE : pass(message, wParam, lParam);
    case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS | DLGC_WANTTAB;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        return onKey(wParam) ? 0 : pass(message, wParam, lParam);
    case WM_CHAR:
        onCharacter(static_cast<char16_t>(wParam));
        return 0;
    case WM_IME_STARTCOMPOSITION: {
        beginComposition();
        if (edit_)
            return SendMessageW(edit_->hwnd(), message, wParam, lParam);
        // In a list, the input method composes at the active cell; what it makes of it is looked for.
        const ui::CellRef active = typed().activeCell();
        const RECT r = layout_.cellRect(typed(), active.column, active.row);
        if (const HIMC context = ImmGetContext(hwnd())) {
            COMPOSITIONFORM form{};
            form.dwStyle = CFS_POINT;
            form.ptCurrentPos = {r.left + 3, r.top + 3};
            ImmSetCompositionWindow(context, &form);
            ImmReleaseContext(hwnd(), context);
        }
        return pass(message, wParam, lParam);
    }
    case WM_COPY:
        copy();
        return 0;
    case WM_CUT:
        cut();
        return 0;
    case WM_PASTE:
        paste();
        return 0;
    case WM_CLEAR:
        clearMarked();
        return 0;
    default:
        return pass(message, wParam, lParam);
    }
}

std::shared_ptr<ControlView> makeGridView(ui::Control& model, const std::shared_ptr<Dressing>& dressing) {
    auto* grid = dynamic_cast<ui::Spread*>(&model);
    return grid ? std::make_shared<GridView>(*grid, dressing) : nullptr;
}

} // namespace orv::windows
