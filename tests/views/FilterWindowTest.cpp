#include "UserInput.h"
#include "automation/Text.h"
#include "windows/views/AccessKeys.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <algorithm>

// The control's window as a whole: its parts, their order and their end.
namespace orv::windows {
namespace {

using namespace testing;
using automation::toUtf8;

class FilterWindowTest : public ::testing::Test {
  protected:
    void SetUp() override {
        stage.openClassType(1000201);
        pump(stage);
    }
    POINT centreOf(HWND window) const {
        RECT client;
        GetClientRect(window, &client);
        return {client.right / 2, client.bottom / 2};
    }
    /// Of a control of the page that is shown; the sort grid stands in a box of its own.
    HWND windowOf(const ui::Control& model) const {
        return &model == &controls.vsOrder ? GetWindow(stage.windowOf(controls.picOrder), GW_CHILD)
                                           : stage.windowOf(model);
    }
    void clickOn(const ui::Control& model) {
        const HWND window = stage.windowOf(model);
        ASSERT_NE(window, nullptr) << toUtf8(model.fullName()) << " has no window";
        click(stage, window, centreOf(window));
    }

    Stage stage;
    control::FilterControls& controls = stage.filter->controls();
};

TEST_F(FilterWindowTest, EveryVisibleControlHasAWindowWhereItsModelStands) {
    controls.forEach([this](ui::Control& model) {
        if (!model.visible() || &model == &controls.UserControl || model.bounds().width == 0 ||
            model.typeName() == u"ComboBox" || &model == &controls.vsOrder || &model == &controls.vsPage)
            return;
        const HWND window = stage.windowOf(model);
        ASSERT_NE(window, nullptr) << toUtf8(model.fullName()) << " has no window";
        RECT r;
        GetWindowRect(window, &r);
        EXPECT_EQ(r.bottom - r.top, model.bounds().height) << toUtf8(model.fullName());
    });
}

TEST_F(FilterWindowTest, TabVisitsAllPartsInOrderAndLeavesAtTheEnd) {
    std::vector<bool> left;
    stage.window->onTabOut = [&left](bool forward) { left.push_back(forward); };
    ASSERT_TRUE(stage.window->takeFocus(false));
    std::vector<HWND> visited;
    for (int i = 0; i < 60 && left.empty(); ++i) {
        // The condition grid goes through the cells of its line first.
        if (visited.empty() || visited.back() != GetFocus())
            visited.push_back(GetFocus());
        press(stage, VK_TAB);
    }
    ASSERT_EQ(left, std::vector<bool>{true});
    const ui::Control* const inOrder[] = {&controls.tlbProject, &controls.lvwProject, &controls.tbFilter,
                                          &controls.vsFilter,   &controls.cmdInsert,  &controls.cmdDel,
                                          &controls.cmdDelAll};
    auto at = visited.begin();
    for (const ui::Control* part : inOrder) {
        at = std::find(at, visited.end(), stage.windowOf(*part));
        ASSERT_NE(at, visited.end()) << toUtf8(part->fullName()) << " is not reached in its turn";
    }
    for (std::size_t i = 0; i < visited.size(); ++i)
        EXPECT_EQ(std::count(visited.begin(), visited.end(), visited[i]), 1) << "stop " << i << " comes twice";

    ASSERT_TRUE(stage.window->takeFocus(false));
    press(stage, VK_TAB, {VK_SHIFT});
    EXPECT_EQ(left, (std::vector<bool>{true, false}));
    ASSERT_TRUE(stage.window->takeFocus(true));
    EXPECT_EQ(GetFocus(), visited.back());
}

TEST_F(FilterWindowTest, PagesAreSwitchedByKeys) {
    struct Case {
        const char* keys;
        const ui::Control& from;
        WORD key;
        bool shift;
        int page;
        const ui::Control& to;
    };
    const Case cases[] = {{"Ctrl+Tab", controls.vsFilter, VK_TAB, false, 2, controls.vsOrder},
                          {"Ctrl+Page Down", controls.vsOrder, VK_NEXT, false, 3, controls.vsHideColumn},
                          {"Ctrl+Tab at the last page", controls.vsHideColumn, VK_TAB, false, 1, controls.vsFilter},
                          {"Ctrl+Shift+Tab", controls.cmdDel, VK_TAB, true, 3, controls.vsHideColumn},
                          {"Ctrl+Page Up", controls.cmdHide(1), VK_PRIOR, false, 2, controls.vsOrder},
                          {"on the strip", controls.tbFilter, VK_PRIOR, false, 1, controls.tbFilter},
                          {"beside the pages", controls.lvwProject, VK_NEXT, false, 2, controls.lvwProject}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.keys);
        SetFocus(windowOf(c.from));
        if (c.shift)
            press(stage, c.key, {VK_CONTROL, VK_SHIFT});
        else
            press(stage, c.key, {VK_CONTROL});
        EXPECT_EQ(controls.tbFilter.selected(), c.page);
        EXPECT_EQ(GetFocus(), windowOf(c.to));
    }
    SetFocus(windowOf(controls.tbFilter));
    press(stage, VK_RIGHT);
    EXPECT_EQ(controls.tbFilter.selected(), 3) << "arrows on the strip";
    press(stage, VK_LEFT);
    EXPECT_EQ(controls.tbFilter.selected(), 2);
}

TEST_F(FilterWindowTest, TellsWhenTheFocusComesAndGoes) {
    int came = 0;
    int went = 0;
    const HWND outside = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, stage.frame(), nullptr,
                                         GetModuleHandleW(nullptr), nullptr);
    SetFocus(outside);
    pump(stage);
    stage.window->onFocus = [&came] { ++came; };
    stage.window->onLostFocus = [&went] { ++went; };
    stage.window->takeFocus(false);
    SetFocus(stage.windowOf(controls.vsFilter));
    SetFocus(stage.windowOf(controls.cmdDel));
    EXPECT_EQ(came, 1);
    EXPECT_EQ(went, 0) << "moving between parts is no leaving";
    SetFocus(outside);
    EXPECT_EQ(came, 1);
    EXPECT_EQ(went, 1);
    EXPECT_FALSE(stage.window->focusIsInside());
}

TEST_F(FilterWindowTest, ClicksReachTheModels) {
    controls.vsFilter.userChoose(2, 1, 2);
    const std::u16string field = controls.vsFilter.text(2, 1);
    controls.vsFilter.setActiveCell(2, 1);
    clickOn(controls.cmdInsert);
    EXPECT_EQ(controls.vsFilter.text(2, 1), u"");
    EXPECT_EQ(controls.vsFilter.text(2, 2), field) << "a line has been inserted above";

    const HWND tabs = stage.windowOf(controls.tbFilter);
    RECT second;
    SendMessageW(tabs, TCM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&second));
    click(stage, tabs, {second.left + 8, second.top + 8});
    EXPECT_EQ(controls.tbFilter.selected(), 2);
    EXPECT_EQ(stage.windowOf(controls.cmdInsert), nullptr) << "the conditions' buttons are hidden";

    const ui::ListViewMode before = controls.lvwProject.view();
    const HWND toolbar = stage.windowOf(controls.tlbProject);
    RECT button;
    SendMessageW(toolbar, TB_GETITEMRECT, 3, reinterpret_cast<LPARAM>(&button));
    click(stage, toolbar, {(button.left + button.right) / 2, (button.top + button.bottom) / 2});
    EXPECT_NE(controls.lvwProject.view(), before);
}

TEST_F(FilterWindowTest, ToolbarWorksByKeysWithItsMenus) {
    ui::Toolbar& toolbar = controls.tlbProject;
    ui::Toolbar::ToolButton withMenu = toolbar.buttons()[2];
    withMenu.menu = {{u"ONE", u"1"}, {u"TWO", u"2"}};
    toolbar.setButton(3, withMenu);
    pump(stage);
    std::vector<std::u16string> pressed;
    const auto onButton = toolbar.buttonClick.subscribe([&](const std::u16string& key) { pressed.push_back(key); });
    const auto onMenu = toolbar.menuClick.subscribe(
        [&](const std::u16string& key, const std::u16string& item) { pressed.push_back(key + u"/" + item); });
    SetFocus(stage.windowOf(toolbar));
    press(stage, VK_RIGHT);
    press(stage, VK_RIGHT);
    // The menu has a message loop of its own: its keys are there before it opens.
    PostMessageW(stage.windowOf(toolbar), WM_KEYDOWN, VK_F4, 1);
    for (const WPARAM key : {WPARAM{VK_DOWN}, WPARAM{VK_DOWN}, WPARAM{VK_RETURN}})
        PostMessageW(stage.windowOf(toolbar), WM_KEYDOWN, key, 1);
    pumpFor(stage, 100);
    EXPECT_EQ(pressed, std::vector<std::u16string>{u"TLBCLEAR/TWO"});
    press(stage, VK_END);
    press(stage, VK_SPACE);
    press(stage, VK_HOME);
    press(stage, VK_LEFT);
    EXPECT_EQ(pressed.back(), u"TLBVIEW");
    EXPECT_EQ(SendMessageW(stage.windowOf(toolbar), TB_GETHOTITEM, 0, 0), 0) << "the current button is marked";
    press(stage, VK_TAB);
    EXPECT_EQ(SendMessageW(stage.windowOf(toolbar), TB_GETHOTITEM, 0, 0), -1) << "without the focus, none is";
}

TEST_F(FilterWindowTest, AccessKeysOfCaptionsPressTheirParts) {
    controls.cmdDelAll.setCaption(u"全删(&Q)");
    controls.lblClassType.setCaption(u"&Type");
    controls.chkPage(0).setCaption(u"R&D");
    EXPECT_EQ(accessKeysOf(controls), u"TQ") << "the data of a page box is shown to the letter";
    int pressed = 0;
    const auto subscription = controls.cmdDelAll.click.subscribe([&pressed] { ++pressed; });
    EXPECT_TRUE(stage.window->pressAccessKey(u'q'));
    EXPECT_EQ(pressed, 1);
    EXPECT_EQ(GetFocus(), stage.windowOf(controls.cmdDelAll));
    EXPECT_TRUE(stage.window->pressAccessKey(u'T'));
    EXPECT_NE(GetFocus(), stage.windowOf(controls.cmdDelAll)) << "a label's key goes to the part behind it";
    EXPECT_FALSE(stage.window->pressAccessKey(u'D'));
    controls.tbFilter.select(2);
    pump(stage);
    EXPECT_FALSE(stage.window->pressAccessKey(u'Q')) << "not in sight";
}

TEST_F(FilterWindowTest, SchemeListSelectsByClickInEveryMode) {
    const HWND list = stage.windowOf(controls.lvwProject);
    ASSERT_GE(controls.lvwProject.count(), 2);
    for (const auto mode : {ui::ListViewMode::largeIcons, ui::ListViewMode::smallIcons, ui::ListViewMode::list,
                            ui::ListViewMode::details}) {
        SCOPED_TRACE(static_cast<int>(mode));
        controls.lvwProject.setView(mode);
        controls.lvwProject.setSelected(1);
        pump(stage);
        int told = 0;
        const auto subscription = controls.lvwProject.itemClick.subscribe([&told] { ++told; });
        RECT item{LVIR_LABEL, 0, 0, 0};
        SendMessageW(list, LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&item));
        click(stage, list, {item.left + 6, (item.top + item.bottom) / 2});
        EXPECT_EQ(controls.lvwProject.selected(), 2);
        EXPECT_EQ(told, 1) << "one click is told once";
    }
}

TEST_F(FilterWindowTest, SpaceLoadsTheSelectedSchemeAgain) {
    SetFocus(stage.windowOf(controls.lvwProject));
    controls.lvwProject.setSelected(2);
    pump(stage);
    int told = 0;
    const auto subscription = controls.lvwProject.itemClick.subscribe([&told] { ++told; });
    press(stage, VK_SPACE);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(controls.lvwProject.selected(), 2);
}

TEST_F(FilterWindowTest, ComboBoxFollowsKeysAndModel) {
    const HWND combo = FindWindowExW(stage.window->hwnd(), nullptr, L"COMBOBOX", nullptr);
    ASSERT_NE(combo, nullptr);
    controls.cboClassType.setListIndex(0);
    pump(stage);
    EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), 0);
    EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), controls.cboClassType.count());
    if (controls.cboClassType.count() > 1) {
        SetFocus(combo);
        press(stage, VK_DOWN);
        EXPECT_EQ(controls.cboClassType.listIndex(), 1);
    }
}

TEST_F(FilterWindowTest, PageBoxesFollowTheClassType) {
    const int pages = controls.chkPage.count();
    ASSERT_GT(pages, 1);
    EXPECT_NE(stage.windowOf(controls.chkPage(1)), nullptr);
    stage.openClassType(1000101);
    pump(stage);
    ASSERT_NE(controls.chkPage.count(), pages) << "the sample's class types differ in their pages";
    int boxes = 0;
    const HWND area = stage.windowOf(controls.picPage);
    for (HWND box = GetWindow(area, GW_CHILD); box; box = GetWindow(box, GW_HWNDNEXT))
        ++boxes;
    EXPECT_EQ(boxes, controls.chkPage.count()) << "boxes of pages that are gone are gone, too";
    wchar_t caption[64] = {};
    GetWindowTextW(GetWindow(area, GW_CHILD), caption, 64);
    EXPECT_EQ(toUtf8(std::u16string(reinterpret_cast<const char16_t*>(caption))),
              toUtf8(controls.chkPage(0).caption()));
}

TEST_F(FilterWindowTest, MayBeDestroyedFromACallback) {
    const auto subscription = controls.cmdDelAll.click.subscribe([this] { stage.window.reset(); });
    const HWND surface = stage.window->hwnd();
    clickOn(controls.cmdDelAll);
    EXPECT_EQ(stage.window, nullptr);
    EXPECT_FALSE(IsWindow(surface));
    controls.vsFilter.setText(2, 0, u"x"); // nobody listens any more
}

TEST_F(FilterWindowTest, EndsWithItsParent) {
    DestroyWindow(stage.frame());
    EXPECT_EQ(stage.window->hwnd(), nullptr);
    stage.window->move({0, 0, 300, 300});
    stage.window->show(true);
    EXPECT_FALSE(stage.window->takeFocus(false));
}

TEST_F(FilterWindowTest, DisabledSurfaceTakesNoInput) {
    stage.window->enable(false);
    const HWND button = stage.windowOf(controls.cmdInsert);
    const POINT at = centreOf(button);
    POINT onScreen = at;
    ClientToScreen(button, &onScreen);
    EXPECT_NE(WindowFromPoint(onScreen), button) << "a click goes to the container";
}

TEST_F(FilterWindowTest, ScalesWithTheResolutionWithoutClippingCaptions) {
    for (const int dpi : {96, 120, 144, 192}) {
        SCOPED_TRACE(dpi);
        const RECT bounds{0, 0, MulDiv(800, dpi, 96), MulDiv(560, dpi, 96)};
        stage.window->setAppearance(appearanceAt(dpi));
        stage.window->move(bounds);
        pump(stage);
        const Appearance look = appearanceAt(dpi);
        const HFONT font = CreateFontIndirectW(&look.font);
        const HDC dc = GetDC(stage.frame());
        const HGDIOBJ old = SelectObject(dc, font);
        controls.forEach([&](ui::Control& model) {
            const auto* label = dynamic_cast<const ui::CaptionControl*>(&model);
            const HWND window = label && model.visible() ? stage.windowOf(model) : nullptr;
            if (!window)
                return;
            const std::u16string& caption = label->caption();
            SIZE size{};
            GetTextExtentPoint32W(dc, reinterpret_cast<const wchar_t*>(caption.c_str()),
                                  static_cast<int>(caption.size()), &size);
            RECT client;
            GetClientRect(window, &client);
            EXPECT_LE(size.cx, client.right) << toUtf8(model.fullName()) << " clips " << toUtf8(caption);
            EXPECT_LE(size.cy, client.bottom) << toUtf8(model.fullName());
        });
        SelectObject(dc, old);
        DeleteObject(font);
        ReleaseDC(stage.frame(), dc);
    }
}

} // namespace
} // namespace orv::windows
