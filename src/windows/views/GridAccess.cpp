#include "windows/views/GridAccess.h"

#include "automation/Coercion.h"
#include "windows/com/ComObject.h"
#include "windows/com/Enumerator.h"
#include "windows/com/Errors.h"
#include "windows/com/Handles.h"

#include <algorithm>

namespace orv::windows {

template <>
struct Extends<IAccessible> {
    using type = IDispatch;
};

namespace {

using ui::CellType;

/// Position of a node: -1 where it is all columns or all rows.
constexpr int all = -1;

/// What an enumerator of cells keeps of one: its node is made when it is asked for.
struct HeldCell {
    std::weak_ptr<GridView> grid;
    ui::CellRef at;
    VARIANT give() const noexcept;
};

class GridNode final : public ComObject<IAccessible> {
  public:
    GridNode(const std::shared_ptr<GridView>& grid, ui::CellRef at) : grid_(grid), at_(at) {}

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override {
        if (!count)
            return E_POINTER;
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** parent) noexcept override {
        return answer(parent, [&](GridView& grid) {
            if (isTable())
                return grid.standardParent(parent);
            *parent = node(isRow() ? ui::CellRef{all, all} : ui::CellRef{all, at_.row});
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* count) noexcept override {
        return answer(count, [&](GridView& grid) {
            *count = isTable() ? grid.grid().maxRows() + 1 : isRow() ? static_cast<LONG>(columns(grid).size()) : 0;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** found) noexcept override {
        return answer(found, [&](GridView& grid) {
            ui::CellRef at;
            if (!resolve(grid, child, at))
                return E_INVALIDARG;
            *found = node(at);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* name) noexcept override {
        return answerAt(child, name, [&](GridView& grid, ui::CellRef at) {
            const std::u16string text = nameOf(grid, at);
            *name = UniqueBstr(text).release();
            return text.empty() ? S_FALSE : S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* value) noexcept override {
        return answerAt(child, value, [&](GridView& grid, ui::CellRef at) {
            if (at.column < 1 || at.row < 1)
                return S_FALSE;
            *value = UniqueBstr(shownInCell(grid.grid(), at.column, at.row)).release();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT, BSTR* text) noexcept override { return none(text); }
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* role) noexcept override {
        return answerAt(child, role, [&](GridView& grid, ui::CellRef at) {
            V_VT(role) = VT_I4;
            V_I4(role) = roleOf(grid, at);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* state) noexcept override {
        return answerAt(child, state, [&](GridView& grid, ui::CellRef at) {
            V_VT(state) = VT_I4;
            V_I4(state) = stateOf(grid, at);
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT, BSTR* text) noexcept override { return none(text); }
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) noexcept override {
        if (!topic)
            return E_POINTER;
        *topic = 0;
        return none(file);
    }
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT, BSTR* text) noexcept override { return none(text); }
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* focus) noexcept override {
        return answer(focus, [&](GridView& grid) {
            const ui::CellRef active = grid.grid().activeCell();
            if (!isWithin(grid.hwnd(), GetFocus()) || active.column < 1 || active.row < 1)
                return S_FALSE;
            return giveNode(*focus, active);
        });
    }
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* selection) noexcept override {
        return answer(selection, [&](GridView& grid) {
            const std::vector<ui::CellRef> cells = grid.selectedCells();
            if (cells.size() < 2)
                return cells.empty() ? S_FALSE : giveNode(*selection, cells.front());
            std::vector<HeldCell> held;
            for (const ui::CellRef& cell : cells)
                held.push_back({grid_, cell});
            V_UNKNOWN(selection) = makeComObject<Enumerator<IEnumVARIANT, VARIANT, HeldCell>>(std::move(held)).detach();
            V_VT(selection) = VT_UNKNOWN;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* action) noexcept override {
        return answerAt(child, action, [&](GridView& grid, ui::CellRef at) {
            if (at.column < 1 || at.row < 1 || !grid.grid().editable(at.column, at.row))
                return S_FALSE;
            const bool switches = grid.grid().cellType(at.column, at.row) == CellType::checkBox;
            const bool opens = opensPopup(grid.grid(), at.column, at.row);
            *action = UniqueBstr(grid.translated(switches ? u"切换" : opens ? u"打开" : u"编辑")).release();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accSelect(LONG flags, VARIANT child) noexcept override {
        return answerAt(child, this, [&](GridView& grid, ui::CellRef at) {
            if (at.column < 1 || at.row < 1)
                return E_INVALIDARG;
            if ((flags & (SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION)) == 0)
                return S_FALSE;
            if ((flags & SELFLAG_TAKEFOCUS) != 0)
                SetFocus(grid.hwnd());
            return grid.visit(at.column, at.row) ? S_OK : S_FALSE;
        });
    }
    HRESULT STDMETHODCALLTYPE accLocation(LONG* left, LONG* top, LONG* width, LONG* height,
                                          VARIANT child) noexcept override {
        if (!left || !top || !width || !height)
            return E_POINTER;
        *left = *top = *width = *height = 0;
        return answerAt(child, this, [&](GridView& grid, ui::CellRef at) {
            const RECT place = placeOf(grid, at);
            *left = place.left;
            *top = place.top;
            *width = place.right - place.left;
            *height = place.bottom - place.top;
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE accNavigate(LONG direction, VARIANT start, VARIANT* end) noexcept override {
        return answerAt(start, end, [&](GridView& grid, ui::CellRef at) {
            ui::CellRef to = at;
            return neighbour(grid, direction, to) ? giveNode(*end, to) : S_FALSE;
        });
    }
    HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* hit) noexcept override {
        return answer(hit, [&](GridView& grid) {
            POINT point{x, y};
            const RECT mine = placeOf(grid, at_);
            if (!PtInRect(&mine, point))
                return S_FALSE;
            ScreenToClient(grid.hwnd(), &point);
            ui::CellRef cell = grid.layout().cellAt(point);
            const bool inCorner =
                point.x < grid.layout().measures().rowHeaderWidth && point.y < grid.layout().measures().headerHeight;
            if (isCell() || (cell == ui::CellRef{0, 0} && !inCorner)) {
                V_VT(hit) = VT_I4;
                V_I4(hit) = CHILDID_SELF;
                return S_OK;
            }
            const ui::CellSpan span = grid.grid().spanAt(cell.column, cell.row);
            return giveNode(*hit, {span.column, span.row});
        });
    }
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) noexcept override {
        return answerAt(child, this, [&](GridView& grid, ui::CellRef at) {
            if (at.column < 1 || at.row < 1)
                return DISP_E_MEMBERNOTFOUND;
            SetFocus(grid.hwnd());
            if (!grid.visit(at.column, at.row))
                return S_FALSE;
            grid.useCell();
            return S_OK;
        });
    }
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT, BSTR) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) noexcept override {
        return answerAt(child, this, [&](GridView& grid, ui::CellRef at) {
            const bool taken =
                at.column >= 1 && at.row >= 1 && grid.setCellText(at.column, at.row, std::u16string(viewOf(value)));
            return taken ? S_OK : E_INVALIDARG;
        });
    }

  private:
    bool isTable() const noexcept { return at_.row == all; }
    bool isRow() const noexcept { return at_.row != all && at_.column == all; }
    bool isCell() const noexcept { return at_.column != all; }

    /// Clears what is to be answered, and answers while the grid is there and still has the node's place.
    template <class Out, class Action>
    HRESULT answer(Out* out, Action action) noexcept {
        if (!out)
            return E_POINTER;
        if constexpr (std::is_same_v<Out, VARIANT>)
            VariantInit(out);
        else if constexpr (!std::is_same_v<Out, GridNode>)
            *out = {};
        const std::shared_ptr<GridView> grid = grid_.lock();
        if (!grid)
            return CO_E_OBJNOTCONNECTED;
        const Window::Use inUse(*grid);
        if (!grid->hwnd() || !grid->modelLives() || at_.column > grid->grid().maxCols() ||
            at_.row > grid->grid().maxRows())
            return CO_E_OBJNOTCONNECTED;
        return guarded([&] { return action(*grid); });
    }
    /// The same for a method that takes a child.
    template <class Out, class Action>
    HRESULT answerAt(const VARIANT& child, Out* out, Action action) noexcept {
        return answer(out, [&](GridView& grid) -> HRESULT {
            ui::CellRef at = at_;
            if (!(V_VT(&child) == VT_I4 && V_I4(&child) == CHILDID_SELF) && !resolve(grid, child, at))
                return E_INVALIDARG;
            return action(grid, at);
        });
    }

    IDispatch* node(ui::CellRef at) const { return makeComObject<GridNode>(grid_.lock(), at).detach(); }
    HRESULT giveNode(VARIANT& out, ui::CellRef at) const {
        V_DISPATCH(&out) = node(at);
        V_VT(&out) = VT_DISPATCH;
        return S_OK;
    }
    static HRESULT none(BSTR* text) noexcept {
        if (!text)
            return E_POINTER;
        *text = nullptr;
        return S_FALSE;
    }

    /// The columns that a row shows, from its header on.
    std::vector<int> columns(const GridView& grid) const {
        std::vector<int> shown{0};
        for (int column = 1; column <= grid.grid().maxCols(); ++column) {
            if (grid.isReachable(column, at_.row))
                shown.push_back(column);
        }
        return shown;
    }

    bool resolve(const GridView& grid, const VARIANT& child, ui::CellRef& at) const {
        if (V_VT(&child) != VT_I4 || V_I4(&child) < 0 || isCell())
            return false;
        const LONG id = V_I4(&child);
        if (id == CHILDID_SELF) {
            at = at_;
            return true;
        }
        if (isRow()) {
            const std::vector<int> shown = columns(grid);
            if (id > static_cast<LONG>(shown.size()))
                return false;
            at = {shown[static_cast<std::size_t>(id - 1)], at_.row};
            return true;
        }
        at = {static_cast<int>(id >> 20) - 1, static_cast<int>(id & 0xFFFFF) - 1};
        return at.row >= 0 && at.row <= grid.grid().maxRows() && at.column <= grid.grid().maxCols();
    }

    static std::u16string nameOf(const GridView& grid, ui::CellRef at) {
        if (at.row == all)
            return grid.tableName();
        if (at.row == 0)
            return at.column >= 1 ? grid.columnName(at.column) : std::u16string();
        const std::u16string row = grid.translated(u"第 %1 行", automation::numberToText(at.row));
        return at.column < 1 ? row : row + u' ' + grid.columnName(at.column);
    }

    static LONG roleOf(const GridView& grid, ui::CellRef at) {
        if (at.row == all)
            return ROLE_SYSTEM_TABLE;
        if (at.column == all)
            return ROLE_SYSTEM_ROW;
        if (at.row == 0)
            return ROLE_SYSTEM_COLUMNHEADER;
        if (at.column == 0)
            return ROLE_SYSTEM_ROWHEADER;
        switch (grid.grid().cellType(at.column, at.row)) {
        case CellType::checkBox:
            return ROLE_SYSTEM_CHECKBUTTON;
        case CellType::comboBox:
            return ROLE_SYSTEM_COMBOBOX;
        default:
            return ROLE_SYSTEM_CELL;
        }
    }

    static LONG stateOf(const GridView& grid, ui::CellRef at) {
        LONG state = grid.grid().enabled() ? 0 : STATE_SYSTEM_UNAVAILABLE;
        const bool hasFocus = isWithin(grid.hwnd(), GetFocus());
        if (at.row == all)
            return state | STATE_SYSTEM_FOCUSABLE | (hasFocus && GetFocus() == grid.hwnd() ? STATE_SYSTEM_FOCUSED : 0);
        const RECT place = placeOf(grid, at);
        if (IsRectEmpty(&place))
            state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
        if (at.column < 1 || at.row < 1)
            return state;
        state |= STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_SELECTABLE;
        if (!grid.grid().editable(at.column, at.row))
            state |= STATE_SYSTEM_READONLY;
        if (grid.grid().cellType(at.column, at.row) == CellType::checkBox && grid.grid().isChecked(at.column, at.row))
            state |= STATE_SYSTEM_CHECKED;
        if (hasButton(grid.grid(), at.column, at.row))
            state |= STATE_SYSTEM_HASPOPUP;
        if (grid.grid().activeCell() == at && hasFocus)
            state |= STATE_SYSTEM_FOCUSED;
        if (grid.isMarked(at.column, at.row))
            state |= STATE_SYSTEM_SELECTED;
        return state;
    }

    static RECT placeOf(const GridView& grid, ui::CellRef at) { return grid.placeOnScreen(at.column, at.row); }

    /// The node beside or within another one in a direction; false when there is none.
    bool neighbour(const GridView& grid, LONG direction, ui::CellRef& at) const {
        const bool cell = at.column != all;
        const int step = direction == NAVDIR_DOWN || direction == NAVDIR_NEXT || direction == NAVDIR_RIGHT ? 1 : -1;
        if (direction == NAVDIR_FIRSTCHILD || direction == NAVDIR_LASTCHILD) {
            if (cell)
                return false;
            const bool last = direction == NAVDIR_LASTCHILD;
            if (at.row == all)
                at.row = last ? grid.grid().maxRows() : 0;
            else
                at.column = last ? shownColumn(grid, at.row, grid.grid().maxCols(), -1) : 0;
            return true;
        }
        if (at.row == all)
            return false;
        const bool alongRow = cell && (direction == NAVDIR_LEFT || direction == NAVDIR_RIGHT ||
                                       direction == NAVDIR_NEXT || direction == NAVDIR_PREVIOUS);
        if (alongRow) {
            at.column = shownColumn(grid, at.row, at.column + step, step);
            return at.column >= 0 && at.column <= grid.grid().maxCols();
        }
        if (direction == NAVDIR_LEFT || direction == NAVDIR_RIGHT)
            return false;
        at.row += step;
        return at.row >= 0 && at.row <= grid.grid().maxRows();
    }
    static int shownColumn(const GridView& grid, int row, int column, int step) {
        while (column >= 1 && column <= grid.grid().maxCols() && !grid.isReachable(column, row))
            column += step;
        return column;
    }

    std::weak_ptr<GridView> grid_;
    ui::CellRef at_;
};

VARIANT HeldCell::give() const noexcept {
    VARIANT node;
    VariantInit(&node);
    guarded([&] {
        V_DISPATCH(&node) = makeComObject<GridNode>(grid.lock(), at).detach();
        V_VT(&node) = VT_DISPATCH;
    });
    return node;
}

} // namespace

ComPtr<IAccessible> accessibleOf(const std::shared_ptr<GridView>& grid) {
    return ComPtr<IAccessible>::attach(makeComObject<GridNode>(grid, ui::CellRef{all, all}).detach());
}

LRESULT GridView::onGetObject(WPARAM wParam) {
    const auto self = std::static_pointer_cast<GridView>(shared_from_this());
    const ComPtr<IAccessible> table = accessibleOf(self);
    return LresultFromObject(__uuidof(IAccessible), wParam, table.get());
}

void GridView::tellAssistants(DWORD event, ui::CellRef cell) {
    if (hwnd())
        NotifyWinEvent(event, hwnd(), OBJID_CLIENT,
                       cell.column < 1 || cell.row < 1 ? CHILDID_SELF : accessibleId(cell));
}

HRESULT GridView::standardParent(IDispatch** parent) const {
    ComPtr<IAccessible> standard;
    if (const HRESULT made = CreateStdAccessibleObject(hwnd(), OBJID_CLIENT, __uuidof(IAccessible), standard.putVoid());
        FAILED(made))
        return made;
    return standard->get_accParent(parent);
}

std::u16string GridView::translated(std::u16string_view messageTemplate, std::u16string_view first) const {
    return dressing().translated ? dressing().translated(messageTemplate, first) : std::u16string(messageTemplate);
}

std::u16string GridView::tableName() const {
    wchar_t name[128] = {};
    GetWindowTextW(hwnd(), name, 128);
    return std::u16string(asUtf16(name));
}

RECT GridView::placeOnScreen(int column, int row) const {
    RECT client;
    GetClientRect(hwnd(), &client);
    RECT place = client;
    if (row >= 0 && column >= 0)
        place = layout_.cellRect(typed(), column, row);
    else if (row >= 0)
        place = {0, layout_.blockRect(0, row, 1, 1).top, client.right, layout_.blockRect(0, row, 1, 1).bottom};
    // Headers cover what has been scrolled beneath them.
    const RECT body = layout_.body();
    if (row > 0)
        client.top = body.top;
    if (column > 0)
        client.left = body.left;
    RECT seen;
    if (!IsWindowVisible(hwnd()) || !IntersectRect(&seen, &place, &client))
        return {0, 0, 0, 0};
    return onScreen(seen);
}

std::u16string GridView::columnName(int column) const {
    return typed().text(headerBlock(typed(), column).column, 0);
}

bool GridView::visit(int column, int row) {
    if (!commit() || !ready())
        return false;
    unmark();
    return typed().userMoveTo(column, row);
}

void GridView::useCell() {
    const ui::CellRef cell = typed().activeCell();
    if (cell.column < 1 || cell.row < 1)
        return;
    if (typed().cellType(cell.column, cell.row) == CellType::checkBox)
        typed().userToggle(cell.column, cell.row);
    else if (opensPopup(typed(), cell.column, cell.row))
        openPopup();
    else
        beginEdit(std::nullopt);
}

bool GridView::setCellText(int column, int row, const std::u16string& text) {
    return enter(column, row, text);
}

} // namespace orv::windows
