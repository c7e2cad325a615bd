#include "ole/Form.h"
#include "ole/GuiObjects.h"
#include "ole/SampleComponents.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>

// The host closes its form and lets go of the control inside of a call that a user's action has led to: the control
// goes when the action has ended, and not before.
namespace orv::windows::test {

namespace {

using faults::FaultyHost;

void prepareLookUp(const Form& form, FaultyHost& host) {
    chooseField(form.grid(), u"单号");
    host.erp().queueLookUp(u"C1");
}
void click(HWND window, POINT at) {
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(at.x, at.y));
    SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(at.x, at.y));
}
void clickTool(const Form& form, WPARAM command) {
    const HWND toolbar = form.ofClass(TOOLBARCLASSNAMEW);
    RECT button{};
    SendMessageW(toolbar, TB_GETRECT, command, reinterpret_cast<LPARAM>(&button));
    click(toolbar, {button.left + 4, button.top + 4});
}
constexpr WPARAM saveTool = 1;
constexpr WPARAM deleteTool = 2;

void prepareScheme(const Form& form, FaultyHost&) {
    chooseField(form.grid(), u"单号");
    clickTool(form, saveTool);
}
void clickScheme(const Form& form) {
    const HWND list = form.ofClass(WC_LISTVIEWW);
    RECT item{};
    item.left = LVIR_ICON;
    ASSERT_NE(SendMessageW(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&item)), 0) << "no scheme";
    click(list, {(item.left + item.right) / 2, (item.top + item.bottom) / 2});
}

/// Names a scheme, and says yes to what is asked about it.
void answer(HWND modal) {
    if (const HWND name = FindWindowExW(modal, nullptr, L"Edit", nullptr)) {
        SetWindowTextW(name, L"S");
        PostMessageW(modal, WM_COMMAND, IDOK, 0);
        return;
    }
    PostMessageW(FindWindowExW(modal, nullptr, L"Button", nullptr), BM_CLICK, 0, 0);
}

struct UserAction {
    const char* name;
    void (*prepare)(const Form&, FaultyHost&);
    void (*act)(const Form&);
};

constexpr UserAction actions[] = {
    {"chooses a field",
     [](const Form& form, FaultyHost&) {
         openFields(form.grid());
         type(u"单号");
     },
     [](const Form&) { key(VK_RETURN); }},
    {"chooses a field with the mouse", [](const Form& form, FaultyHost&) { openFields(form.grid()); },
     [](const Form&) {
         const HWND list = FindWindowW(L"ListBox", nullptr);
         RECT item{};
         SendMessageW(list, LB_GETITEMRECT, 2, reinterpret_cast<LPARAM>(&item));
         SendMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(item.left + 2, item.top + 2));
     }},
    {"asks for a look-up", prepareLookUp, [](const Form&) { key(VK_F7); }},
    {"presses the button of a look-up", prepareLookUp,
     [](const Form& form) {
         LONG left = 0, top = 0, width = 0, height = 0;
         ASSERT_EQ(form.activeCell()->accLocation(&left, &top, &width, &height, itself()), S_OK);
         POINT button{left + width - 8, top + height / 2};
         ScreenToClient(form.grid(), &button);
         click(form.grid(), button);
     }},
    {"chooses a comparison whose values are queried",
     [](const Form& form, FaultyHost&) {
         chooseField(form.grid(), u"类型");
         key(VK_LEFT);
         key(VK_F4);
         type(u"其中");
     },
     [](const Form&) { key(VK_RETURN); }},
    {"types an account that is checked",
     [](const Form& form, FaultyHost&) {
         chooseField(form.grid(), u"科目");
         type(u"1001");
     },
     [](const Form&) { key(VK_TAB); }},
    {"chooses a date", [](const Form& form, FaultyHost&) { chooseField(form.grid(), u"日期"); },
     [](const Form&) {
         key(VK_F4);
         key(VK_RETURN);
     }},
    {"has an assistive program open a calendar",
     [](const Form& form, FaultyHost&) { chooseField(form.grid(), u"日期"); },
     [](const Form& form) {
         const auto cell = form.activeCell();
         ASSERT_TRUE(cell);
         cell->accDoDefaultAction(itself());
     }},
    {"chooses another class type", [](const Form& form, FaultyHost&) { SetFocus(form.withText(L"收款单据")); },
     [](const Form&) { key(VK_DOWN); }},
    {"saves a scheme", [](const Form&, FaultyHost&) {}, [](const Form& form) { clickTool(form, saveTool); }},
    {"loads a scheme", prepareScheme, clickScheme},
    {"deletes a scheme",
     [](const Form& form, FaultyHost&) {
         clickTool(form, saveTool);
         clickScheme(form);
     },
     [](const Form& form) { clickTool(form, deleteTool); }},
};

class LettingGoInACall : public testing::TestWithParam<UserAction> {
  protected:
    /// The host closes the form in the call of that number that the action leads to; 0 in none. The number of calls.
    static int play(int at) {
        FaultyHost host(faults::openSmallErp());
        const ServedHost served(host);
        const ModalUser user(answer);
        int calls = 0;
        {
            Form form(host);
            GetParam().prepare(form, host);
            pumpMessages();
            const int before = host.strike.calls;
            host.strike.at = at > 0 ? before + at : 0;
            host.strike.action = [&form, at] { EXPECT_GT(form.close(at % 2 == 0), 0u) << "nobody keeps the control"; };
            GetParam().act(form);
            pumpMessages();
            calls = host.strike.calls - before;
            EXPECT_EQ(form.isClosed(), at > 0) << "call " << at;
            if (!form.isClosed()) {
                EXPECT_EQ(form.close(false), 0u);
            }
        }
        pumpMessages();
        return calls;
    }
};

TEST_P(LettingGoInACall, EndsTheControlAfterTheUsersAction) {
    const Dll kept(u"ORVFilter.ocx"); // what the module makes once is not made again
    const int last = play(0);
    ASSERT_GT(last, 0) << "the action does not call the host";
    const std::size_t windows = windowCount();
    for (int at = 1; at <= last && !HasFailure(); ++at)
        play(at);
    EXPECT_EQ(windowCount(), windows);
    EXPECT_TRUE(kept.canUnload()) << "objects of the control are alive";
}

TEST(LettingGo, BehindADialogEndsTheControlAfterIt) {
    const Dll kept(u"ORVFilter.ocx");
    {
        FaultyHost host(faults::openSmallErp());
        const ServedHost served(host);
        Form form(host);
        const ModalUser user([&form](HWND modal) {
            if (!form.isClosed()) {
                EXPECT_GT(form.close(false), 0u) << "nobody keeps the control";
            }
            PostMessageW(modal, WM_CLOSE, 0, 0);
        });
        clickTool(form, saveTool);
        EXPECT_TRUE(form.isClosed()) << "there was no dialog";
    }
    pumpMessages();
    EXPECT_TRUE(kept.canUnload()) << "objects of the control are alive";
}

std::string nameOf(const testing::TestParamInfo<UserAction>& action) {
    std::string name = action.param.name;
    std::ranges::replace(name, ' ', '_');
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Users, LettingGoInACall, testing::ValuesIn(actions), nameOf);

} // namespace

} // namespace orv::windows::test
