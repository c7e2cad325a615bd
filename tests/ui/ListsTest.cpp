#include "Support.h"
#include "ui/ErrorNumbers.h"
#include "ui/ListView.h"
#include "ui/TabStrip.h"
#include "ui/Toolbar.h"

#include <gtest/gtest.h>

#include <string>

namespace orv::ui {
namespace {

struct ListViewTest : testing::Test {
    ListView list{u"lvwProject"};
    int clicks = 0;
    Subscription handler = list.itemClick.subscribe([this] { ++clicks; });
    void SetUp() override {
        for (const char16_t* key : {u"S1", u"S2", u"S3"})
            list.addItem({key, std::u16string(u"方案 ") + key, u"1|7|0", {}});
    }
    std::u16string selectedKey() const { return list.selectedItem() ? list.selectedItem()->key : u"(none)"; }
};

TEST_F(ListViewTest, SelectsFromCodeWithoutAndFromTheUserWithAClick) {
    EXPECT_EQ(list.selectedItem(), nullptr);
    list.setSelected(2);
    EXPECT_EQ(clicks, 0);
    list.userSelect(2);
    list.userSelect(3);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(selectedKey(), u"S3");
    list.setSelected(0);
    list.setEnabled(false);
    list.userSelect(1);
    EXPECT_EQ(selectedKey(), u"(none)");
}

TEST_F(ListViewTest, TheSelectionStaysWithItsItem) {
    struct Case {
        int selected, removed;
        const char16_t* left;
    };
    for (const Case& c : {Case{3, 1, u"S3"}, Case{1, 3, u"S1"}, Case{2, 2, u"(none)"}}) {
        SCOPED_TRACE("selected " + std::to_string(c.selected) + ", removed " + std::to_string(c.removed));
        list.clear();
        SetUp();
        list.setSelected(c.selected);
        list.removeItem(c.removed);
        EXPECT_EQ(shown(selectedKey()), shown(c.left));
        EXPECT_EQ(list.count(), 2);
    }
    EXPECT_EQ(clicks, 0);
}

TEST_F(ListViewTest, KeysAreUnique) {
    EXPECT_EQ(errorOf([&] { list.addItem({u"S2", u"again", u"", {}}); }), errorNumber::keyNotUnique);
    EXPECT_EQ(errorOf([&] { list.setItem(1, {u"S2", u"again", u"", {}}); }), errorNumber::keyNotUnique);
    list.setItem(2, {u"S2", u"renamed", u"", {}});
    list.addItem({u"", u"no key", u"", {}});
    list.addItem({u"", u"no key either", u"", {}});
    EXPECT_EQ(list.find(u"S2"), 2);
    EXPECT_EQ(list.items()[1].text, u"renamed");
    EXPECT_EQ(list.find(u"s2"), 0);
    EXPECT_EQ(list.find(u""), 0);
}

TEST_F(ListViewTest, RefusesPositionsOutsideOfTheList) {
    for (const int position : {-1, 0, 4}) {
        SCOPED_TRACE(position);
        EXPECT_EQ(errorOf([&] { list.removeItem(position); }), errorNumber::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { list.setItem(position, {}); }), errorNumber::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { list.userSelect(position); }), errorNumber::indexOutOfBounds);
        EXPECT_EQ(errorOf([&] { list.setSelected(position); }), position == 0 ? 0 : errorNumber::indexOutOfBounds);
    }
}

TEST_F(ListViewTest, AClickHandlerMayRemoveTheItem) {
    const auto removing = list.itemClick.subscribe([&] { list.removeItem(list.selected()); });
    list.userSelect(1);
    EXPECT_EQ(list.find(u"S1"), 0);
    EXPECT_EQ(list.selected(), 0);
}

struct TabStripTest : testing::Test {
    TabStrip tabs{u"tbFilter"};
    int clicks = 0;
    Subscription handler = tabs.click.subscribe([this] { ++clicks; });
    void SetUp() override {
        tabs.addTab(u"Filter", u"条件");
        tabs.addTab(u"Order", u"排序");
        tabs.addTab(u"Hide", u"显示隐藏列");
    }
};

TEST_F(TabStripTest, SelectsTheFirstTabByItselfAndClicksForEverySelection) {
    EXPECT_EQ(tabs.selectedKey(), u"Filter");
    EXPECT_EQ(clicks, 0);
    tabs.select(3);
    tabs.select(3);
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(tabs.selectedKey(), u"Hide");
    tabs.setEnabled(false);
    tabs.userSelect(1);
    EXPECT_EQ(tabs.selected(), 3);
    EXPECT_EQ(errorOf([&] { tabs.select(4); }), errorNumber::indexOutOfBounds);
    EXPECT_EQ(errorOf([&] { tabs.setTabCaption(0, u"x"); }), errorNumber::indexOutOfBounds);
}

TEST_F(TabStripTest, AHandlerMayKeepTheUserOnATab) {
    bool cancels = true;
    const auto before = tabs.beforeClick.subscribe([&cancels](bool& cancel) { cancel = cancels; });
    tabs.userSelect(2);
    EXPECT_EQ(tabs.selected(), 1);
    tabs.select(2);
    EXPECT_EQ(tabs.selected(), 2) << "code is not asked";
    cancels = false;
    tabs.userSelect(1);
    EXPECT_EQ(tabs.selected(), 1);
}

TEST_F(TabStripTest, RemovingATabKeepsTheSelectionWithItsTabOrGoesToTheFirst) {
    tabs.select(3);
    tabs.removeTab(u"Filter");
    EXPECT_EQ(tabs.selectedKey(), u"Hide");
    tabs.removeTab(u"Hide");
    EXPECT_EQ(tabs.selectedKey(), u"Order");
    tabs.removeTab(u"Order");
    EXPECT_EQ(tabs.selected(), 0);
    EXPECT_EQ(tabs.selectedKey(), u"");
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(errorOf([&] { tabs.removeTab(u"Order"); }), errorNumber::elementNotFound);
}

TEST_F(TabStripTest, KeysAreUniqueAndCaptionsReplaceable) {
    EXPECT_EQ(errorOf([&] { tabs.addTab(u"Order", u"again"); }), errorNumber::keyNotUnique);
    tabs.setTabCaption(2, u"Sort");
    EXPECT_EQ(tabs.tabs()[1].caption, u"Sort");
    EXPECT_EQ(tabs.tabs().size(), 3U);
}

struct ToolbarTest : testing::Test {
    Toolbar bar{u"tlbProject"};
    std::u16string clicks;
    Subscription onButton = bar.buttonClick.subscribe([this](const std::u16string& key) { clicks += key + u";"; });
    Subscription onMenu = bar.menuClick.subscribe(
        [this](const std::u16string& key, const std::u16string& item) { clicks += key + u"/" + item + u";"; });
    void SetUp() override {
        bar.addButton({u"TLBSAVE", u"保存", u"", true, {}});
        bar.addButton({u"TLBVIEW", u"视图", u"", true, {{u"LIST", u"列表"}}});
    }
};

TEST_F(ToolbarTest, TellsWhichButtonAndMenuItemWasClicked) {
    bar.userClick(u"TLBSAVE");
    bar.userMenu(u"TLBVIEW", u"LIST");
    EXPECT_EQ(clicks, u"TLBSAVE;TLBVIEW/LIST;");
    EXPECT_EQ(errorOf([&] { bar.userClick(u"TLBDEL"); }), errorNumber::elementNotFound);
    EXPECT_EQ(errorOf([&] { bar.userMenu(u"TLBVIEW", u"ICONS"); }), errorNumber::elementNotFound);
}

TEST_F(ToolbarTest, DisabledButtonsAndBarsDoNothing) {
    bar.setButton(2, {u"TLBVIEW", u"视图", u"", false, {{u"LIST", u"列表"}}});
    bar.userClick(u"TLBVIEW");
    bar.userMenu(u"TLBVIEW", u"LIST");
    bar.setEnabled(false);
    bar.userClick(u"TLBSAVE");
    EXPECT_EQ(clicks, u"");
}

TEST_F(ToolbarTest, KeysAreUniqueAndAHandlerMayReplaceItsButton) {
    EXPECT_EQ(errorOf([&] { bar.addButton({u"TLBSAVE", u"", u"", true, {}}); }), errorNumber::keyNotUnique);
    EXPECT_EQ(errorOf([&] { bar.setButton(1, {u"TLBVIEW", u"", u"", true, {}}); }), errorNumber::keyNotUnique);
    EXPECT_EQ(errorOf([&] { bar.setButton(3, {}); }), errorNumber::indexOutOfBounds);
    const auto replacing = bar.buttonClick.subscribe([&](const std::u16string&) {
        bar.setButton(1, {u"TLBSAVED", u"已保存", u"", true, {}});
    });
    bar.userClick(u"TLBSAVE");
    EXPECT_EQ(bar.buttons()[0].key, u"TLBSAVED");
}

} // namespace
} // namespace orv::ui
