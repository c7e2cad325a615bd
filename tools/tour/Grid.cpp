#include "tour/Grid.h"

#include "tour/Wait.h"

#include <oleacc.h>

namespace orv::tour {

namespace {

/// The table knows a cell by column and line, each counted from the headers on, in the two halves of a number.
VARIANT childOf(int column, int row) {
    VARIANT child;
    V_VT(&child) = VT_I4;
    V_I4(&child) = (static_cast<LONG>(column + 1) << 20) | static_cast<LONG>(row + 1);
    return child;
}

void check(HRESULT result, const char* what) {
    if (FAILED(result))
        throw TourError(std::string(what) + " of a grid cannot be read: error " +
                        std::to_string(static_cast<unsigned long>(result)));
}

std::wstring taken(BSTR text) {
    const std::wstring copy(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return copy;
}

} // namespace

Grid::Grid(HWND window) : window_(window) {
    void* table = nullptr;
    const HRESULT found =
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &table);
    check(found, "the accessible object");
    table_ = static_cast<IAccessible*>(table);
}

Grid::~Grid() {
    table_->Release();
}

std::wstring Grid::name() const {
    VARIANT self;
    V_VT(&self) = VT_I4;
    V_I4(&self) = CHILDID_SELF;
    BSTR text = nullptr;
    check(table_->get_accName(self, &text), "the name");
    return taken(text);
}

int Grid::rows() const {
    LONG children = 0;
    check(table_->get_accChildCount(&children), "the lines");
    return static_cast<int>(children) - 1; // one is the header
}

std::wstring Grid::text(int column, int row) const {
    BSTR text = nullptr;
    check(table_->get_accValue(childOf(column, row), &text), "a cell's text");
    return taken(text);
}

long Grid::state(int column, int row) const {
    VARIANT state;
    VariantInit(&state);
    check(table_->get_accState(childOf(column, row), &state), "a cell's state");
    return V_I4(&state);
}

bool Grid::isActive(int column, int row) const {
    return (state(column, row) & STATE_SYSTEM_FOCUSED) != 0;
}

bool Grid::isChecked(int column, int row) const {
    return (state(column, row) & STATE_SYSTEM_CHECKED) != 0;
}

bool Grid::opensPopup(int column, int row) const {
    return (state(column, row) & STATE_SYSTEM_HASPOPUP) != 0;
}

bool Grid::hasList(int column, int row) const {
    VARIANT role;
    VariantInit(&role);
    check(table_->get_accRole(childOf(column, row), &role), "a cell's role");
    return V_I4(&role) == ROLE_SYSTEM_COMBOBOX;
}

RECT Grid::place(int column, int row) const {
    LONG left = 0, top = 0, width = 0, height = 0;
    check(table_->accLocation(&left, &top, &width, &height, childOf(column, row)), "a cell's place");
    return {left, top, left + width, top + height};
}

} // namespace orv::tour
