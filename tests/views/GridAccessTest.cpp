#include "UserInput.h"
#include "automation/Text.h"
#include "windows/com/ComPtr.h"
#include "windows/com/Handles.h"

#include <gtest/gtest.h>

#include <oleacc.h>

#include <algorithm>

// The condition grid as a screen reader sees it, through the platform's own entry points.
namespace orv::windows {
namespace {

using namespace testing;
using automation::toUtf8;

VARIANT child(LONG id) {
    VARIANT value;
    V_VT(&value) = VT_I4;
    V_I4(&value) = id;
    return value;
}

struct Event {
    DWORD event;
    LONG childId;
    friend bool operator==(const Event&, const Event&) = default;
};
std::vector<Event> events;
HWND watched = nullptr;

void CALLBACK onEvent(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG childId, DWORD, DWORD) {
    if (window == watched && object == OBJID_CLIENT)
        events.push_back({event, childId});
}

class GridAccess : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
        stage.openClassType(1000201);
        pump(stage);
        gridWindow = stage.windowOf(grid);
        ASSERT_EQ(AccessibleObjectFromWindow(gridWindow, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                             table.putVoid()),
                  S_OK);
    }
    static ComPtr<IAccessible> childOf(const ComPtr<IAccessible>& parent, LONG id) {
        ComPtr<IDispatch> found;
        EXPECT_EQ(parent->get_accChild(child(id), found.put()), S_OK) << id;
        ComPtr<IAccessible> node;
        if (found)
            found.as(node);
        return node;
    }
    void TearDown() override {
        table = nullptr;
        CoUninitialize();
    }
    /// A row is the child after the header row and those before it; a cell stands behind the row's header.
    ComPtr<IAccessible> row(int number) const { return childOf(table, number + 1); }
    ComPtr<IAccessible> cell(int shownColumn, int number) const { return childOf(row(number), shownColumn + 1); }

    using Text = HRESULT (IAccessible::*)(VARIANT, BSTR*);
    static std::string text(const ComPtr<IAccessible>& node, Text member) {
        UniqueBstr value;
        (node.get()->*member)(child(CHILDID_SELF), value.put());
        return toUtf8(viewOf(value.get()));
    }
    static std::string nameOf(const ComPtr<IAccessible>& node) { return text(node, &IAccessible::get_accName); }
    static std::string valueOf(const ComPtr<IAccessible>& node) { return text(node, &IAccessible::get_accValue); }
    static LONG roleOf(const ComPtr<IAccessible>& node) {
        VARIANT role;
        VariantInit(&role);
        EXPECT_EQ(node->get_accRole(child(CHILDID_SELF), &role), S_OK);
        return V_I4(&role);
    }
    static LONG stateOf(const ComPtr<IAccessible>& node) {
        VARIANT state;
        VariantInit(&state);
        EXPECT_EQ(node->get_accState(child(CHILDID_SELF), &state), S_OK);
        return V_I4(&state);
    }
    static RECT placeOf(const ComPtr<IAccessible>& node) {
        LONG left = 0, top = 0, width = 0, height = 0;
        EXPECT_EQ(node->accLocation(&left, &top, &width, &height, child(CHILDID_SELF)), S_OK);
        return {left, top, left + width, top + height};
    }
    static ComPtr<IAccessible> given(VARIANT& value) {
        ComPtr<IAccessible> node;
        if (V_VT(&value) == VT_DISPATCH)
            V_DISPATCH(&value)->QueryInterface(__uuidof(IAccessible), node.putVoid());
        VariantClear(&value);
        return node;
    }

    Stage stage;
    ui::Spread& grid = stage.filter->controls().vsFilter;
    HWND gridWindow = nullptr;
    ComPtr<IAccessible> table;
};

TEST_F(GridAccess, IsATableOfNamedRowsAndCells) {
    EXPECT_EQ(roleOf(table), ROLE_SYSTEM_TABLE);
    EXPECT_EQ(nameOf(table), "条件");
    LONG count = 0;
    EXPECT_EQ(table->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, grid.maxRows() + 1);
    EXPECT_EQ(roleOf(row(2)), ROLE_SYSTEM_ROW);
    EXPECT_EQ(nameOf(row(2)), "第 2 行");
    EXPECT_EQ(row(2)->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 7) << "the row's header and six cells: a span is one";
    EXPECT_EQ(roleOf(cell(0, 2)), ROLE_SYSTEM_ROWHEADER);
    EXPECT_EQ(nameOf(cell(4, 2)), "第 2 行 比较值");
    EXPECT_EQ(roleOf(cell(4, 2)), ROLE_SYSTEM_CELL);
    EXPECT_EQ(roleOf(cell(2, 2)), ROLE_SYSTEM_COMBOBOX);
    EXPECT_EQ(roleOf(cell(2, 0)), ROLE_SYSTEM_COLUMNHEADER);
    EXPECT_EQ(nameOf(cell(2, 0)), "项目名称");
    EXPECT_EQ(nameOf(cell(6, 2)), "第 2 行 逻辑") << "the columns behind the span follow it";
}

TEST_F(GridAccess, ShowsValuesWithoutKeysAndTakesThem) {
    grid.userChoose(2, 1, 1);
    EXPECT_EQ(valueOf(cell(2, 1)).find(' '), std::string::npos) << valueOf(cell(2, 1));
    EXPECT_FALSE(valueOf(cell(2, 1)).empty());
    const UniqueBstr bracket(u"((");
    EXPECT_EQ(cell(1, 1)->put_accValue(child(CHILDID_SELF), bracket.get()), S_OK);
    EXPECT_EQ(grid.text(1, 1), u"((");
    const UniqueBstr wrong(u"x");
    EXPECT_EQ(cell(1, 1)->put_accValue(child(CHILDID_SELF), wrong.get()), E_INVALIDARG);
}

TEST_F(GridAccess, KnowsFocusAndStates) {
    VARIANT focus;
    VariantInit(&focus);
    SetFocus(stage.windowOf(stage.filter->controls().cmdDel));
    EXPECT_EQ(table->get_accFocus(&focus), S_FALSE);
    SetFocus(gridWindow);
    grid.setActiveCell(2, 1);
    EXPECT_EQ(table->get_accFocus(&focus), S_OK);
    EXPECT_EQ(nameOf(given(focus)), "第 1 行 项目名称");
    EXPECT_NE(stateOf(cell(2, 1)) & STATE_SYSTEM_FOCUSED, 0);
    EXPECT_NE(stateOf(cell(2, 1)) & STATE_SYSTEM_HASPOPUP, 0);
    EXPECT_EQ(stateOf(cell(2, 2)) & (STATE_SYSTEM_FOCUSED | STATE_SYSTEM_SELECTED | STATE_SYSTEM_OFFSCREEN), 0);
    EXPECT_NE(stateOf(cell(2, grid.maxRows())) & STATE_SYSTEM_OFFSCREEN, 0);
    press(stage, VK_DOWN, {VK_SHIFT});
    EXPECT_NE(stateOf(cell(2, 2)) & STATE_SYSTEM_SELECTED, 0) << "a marked cell";
    EXPECT_EQ(cell(4, 1)->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, child(CHILDID_SELF)), S_OK);
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{4, 1}));
}

TEST_F(GridAccess, GivesAllMarkedCellsAsTheSelection) {
    VARIANT selection;
    VariantInit(&selection);
    SetFocus(gridWindow);
    grid.setActiveCell(3, 1);
    EXPECT_EQ(table->get_accSelection(&selection), S_OK);
    EXPECT_EQ(nameOf(given(selection)), "第 1 行 比较") << "one cell stands for itself";
    press(stage, VK_RIGHT, {VK_SHIFT});
    press(stage, VK_DOWN, {VK_SHIFT});
    EXPECT_EQ(table->get_accSelection(&selection), S_OK);
    ASSERT_EQ(V_VT(&selection), VT_UNKNOWN);
    ComPtr<IEnumVARIANT> cells;
    ASSERT_EQ(V_UNKNOWN(&selection)->QueryInterface(IID_IEnumVARIANT, cells.putVoid()), S_OK);
    VariantClear(&selection);
    std::string names;
    VARIANT next;
    VariantInit(&next);
    while (cells->Next(1, &next, nullptr) == S_OK)
        names += nameOf(given(next)) + ", ";
    EXPECT_EQ(names, "第 1 行 比较, 第 1 行 比较值, 第 2 行 比较, 第 2 行 比较值, ") << "a span is one cell";
}

TEST_F(GridAccess, FindsTheCellUnderAPointAndItsNeighbours) {
    const RECT place = placeOf(cell(3, 2));
    VARIANT hit;
    VariantInit(&hit);
    ASSERT_EQ(table->accHitTest((place.left + place.right) / 2, (place.top + place.bottom) / 2, &hit), S_OK);
    const ComPtr<IAccessible> found = given(hit);
    ASSERT_TRUE(found);
    EXPECT_EQ(nameOf(found), "第 2 行 比较");
    struct Case {
        LONG direction;
        const char* name;
    };
    for (const Case& c : {Case{NAVDIR_LEFT, "第 2 行 项目名称"}, Case{NAVDIR_RIGHT, "第 2 行 比较值"},
                          Case{NAVDIR_UP, "第 1 行 比较"}, Case{NAVDIR_DOWN, "第 3 行 比较"}}) {
        VARIANT next;
        VariantInit(&next);
        ASSERT_EQ(found->accNavigate(c.direction, child(CHILDID_SELF), &next), S_OK) << c.name;
        EXPECT_EQ(nameOf(given(next)), c.name);
    }
    ComPtr<IDispatch> parent;
    ASSERT_EQ(found->get_accParent(parent.put()), S_OK);
    ComPtr<IAccessible> line;
    parent.as(line);
    EXPECT_EQ(nameOf(line), "第 2 行");
    parent = nullptr;
    EXPECT_EQ(table->get_accParent(parent.put()), S_OK);
    EXPECT_TRUE(parent);
}

TEST_F(GridAccess, DefaultActionOpensSwitchesOrEdits) {
    EXPECT_EQ(text(cell(1, 1), &IAccessible::get_accDefaultAction), "打开");
    EXPECT_EQ(cell(1, 1)->accDoDefaultAction(child(CHILDID_SELF)), S_OK);
    EXPECT_NE(FindWindowW(L"LISTBOX", nullptr), nullptr) << "the list is open";
    press(stage, VK_ESCAPE);
    grid.userChoose(2, 1, 1);
    EXPECT_EQ(cell(4, 1)->accDoDefaultAction(child(CHILDID_SELF)), S_OK);
    EXPECT_TRUE(grid.editMode());
}

TEST_F(GridAccess, TellsOfTheFocusAndOfValues) {
    watched = gridWindow;
    const HWINEVENTHOOK hook = SetWinEventHook(EVENT_OBJECT_FOCUS, EVENT_OBJECT_VALUECHANGE, GetModuleHandleW(nullptr),
                                               onEvent, GetCurrentProcessId(), 0, WINEVENT_INCONTEXT);
    ASSERT_NE(hook, nullptr);
    SetFocus(gridWindow);
    events.clear();
    press(stage, VK_RIGHT);
    ASSERT_EQ(grid.activeCell(), (ui::CellRef{2, 1}));
    const auto focus = std::ranges::find(events, static_cast<DWORD>(EVENT_OBJECT_FOCUS), &Event::event);
    ASSERT_NE(focus, events.end());
    EXPECT_EQ(nameOf(childOf(table, focus->childId)), "第 1 行 项目名称") << "the event's child is the cell";
    events.clear();
    grid.setText(2, 1, u"x");
    EXPECT_EQ(events, (std::vector<Event>{{EVENT_OBJECT_VALUECHANGE, focus->childId}}));
    UnhookWinEvent(hook);
}

TEST_F(GridAccess, OutlivesTheGrid) {
    const ComPtr<IAccessible> kept = cell(2, 1);
    stage.window.reset();
    LONG count = 7;
    EXPECT_EQ(table->get_accChildCount(&count), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(count, 0);
    UniqueBstr name;
    EXPECT_EQ(kept->get_accName(child(CHILDID_SELF), name.put()), CO_E_OBJNOTCONNECTED);
}

} // namespace
} // namespace orv::windows
