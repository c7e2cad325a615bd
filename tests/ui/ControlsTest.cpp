#include "Support.h"
#include "ui/ComboBox.h"
#include "ui/Control.h"
#include "ui/ControlArray.h"
#include "ui/ErrorNumbers.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace orv::ui {
namespace {

TEST(Control, NamesItselfWithItsIndexInAControlArray) {
    EXPECT_EQ(Label(u"lblTime").fullName(), u"lblTime");
    EXPECT_EQ(CheckBox(u"chkPage", 12).fullName(), u"chkPage(12)");
}

TEST(Control, TellsItsViewOnlyOfWhatChanges) {
    struct Case {
        const char* name;
        void (*act)(Label&);
        int changes;
    };
    const std::vector<Case> cases = {
        {"visible as it was", [](Label& l) { l.setVisible(true); }, 0},
        {"hidden", [](Label& l) { l.setVisible(false); }, 1},
        {"disabled twice", [](Label& l) { l.setEnabled(false), l.setEnabled(false); }, 1},
        {"a tag", [](Label& l) { l.setTag(u"3"); }, 0},
        {"a tool tip", [](Label& l) { l.setToolTip(u"时间"); }, 1},
        {"bounds",
         [](Label& l) {
             l.setBounds({1, 2, 3, 4});
         },
         1},
        {"a colour and back", [](Label& l) { l.setBackColor(0xE8FDFD), l.setBackColor(std::nullopt); }, 2},
        {"the same caption", [](Label& l) { l.setCaption(u"时间"), l.setCaption(u"时间"); }, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Label label(u"label");
        int changes = 0;
        const auto view = label.changed.subscribe([&] { ++changes; });
        c.act(label);
        EXPECT_EQ(changes, c.changes);
    }
}

TEST(Button, PressesUnlessDisabled) {
    Button button(u"cmdInsert");
    int clicks = 0;
    const auto handler = button.click.subscribe([&] { ++clicks; });
    button.press();
    button.setEnabled(false);
    button.press();
    EXPECT_EQ(clicks, 1);
}

TEST(CheckBox, ClicksWhenCodeChangesIt) {
    CheckBox box(u"chkPage", 0);
    std::vector<CheckState> seen;
    const auto handler = box.click.subscribe([&] { seen.push_back(box.value()); });
    box.setValue(CheckState::checked);
    box.setValue(CheckState::checked);
    box.setValue(CheckState::grayed);
    box.userClick();
    box.userClick();
    box.setVisible(false);
    box.userClick();
    box.setVisible(true);
    box.setEnabled(false);
    box.userClick();
    EXPECT_EQ(seen, (std::vector{CheckState::checked, CheckState::grayed, CheckState::unchecked, CheckState::checked}));
    EXPECT_TRUE(box.isChecked());
}

TEST(CheckBox, BoxesThatUncheckEachOtherNestTheirClicks) {
    ControlArray<CheckBox> pages(u"chkPage", 0);
    pages.resize(3);
    std::u16string order;
    std::vector<Subscription> handlers;
    for (const auto& page : pages) {
        handlers.push_back(page->click.subscribe([&, self = page.get()] {
            order += self->fullName() + (self->isChecked() ? u"+" : u"-");
            for (const auto& other : pages) {
                if (self->isChecked() && other.get() != self)
                    other->setValue(CheckState::unchecked);
            }
            order += u";";
        }));
    }
    pages(1).userClick();
    pages(2).userClick();
    EXPECT_EQ(order, u"chkPage(1)+;chkPage(2)+chkPage(1)-;;");
}

TEST(ScrollBar, KeepsItsValueWithinItsRange) {
    ScrollBar bar(u"vsPage");
    std::vector<int> seen;
    const auto handler = bar.change.subscribe([&] { seen.push_back(bar.value()); });
    bar.setMaximum(100);
    bar.setValue(250);
    bar.setValue(100);
    bar.setValue(-3);
    bar.setValue(50);
    bar.setMaximum(20);
    bar.setMaximum(-1);
    EXPECT_EQ(seen, (std::vector{100, 0, 50, 20, 0}));
    EXPECT_EQ(bar.maximum(), 0);
}

TEST(TextBox, ChangesOnlyWithAnotherText) {
    TextBox box(u"txtSchemeName");
    int changes = 0;
    const auto handler = box.change.subscribe([&] { ++changes; });
    box.setText(u"");
    box.setText(u"方案");
    box.setText(u"方案");
    EXPECT_EQ(changes, 1);
}

TEST(ControlArray, ElementsHaveConsecutiveIndexesAndKeepTheirAddress) {
    ControlArray<Label> labels(u"lblFilter", 1);
    EXPECT_EQ(labels.upperBound(), 0);
    const Label* first = &labels.load();
    labels.resize(40);
    EXPECT_EQ(first, &labels(1));
    EXPECT_EQ(labels(40).fullName(), u"lblFilter(40)");
    labels.resize(2);
    EXPECT_EQ(labels.upperBound(), 2);
    for (const int index : {0, 3, -1})
        EXPECT_EQ(errorOf([&] { labels(index); }), 9) << "index " << index;
    EXPECT_EQ(errorOf([&] { labels.resize(-1); }), 5);
}

TEST(ControlArray, AnElementMayBeUnloadedByItsOwnClick) {
    ControlArray<CheckBox> pages(u"chkPage", 0);
    pages.resize(2);
    int clicks = 0;
    const auto handler = pages(1).click.subscribe([&] {
        pages.resize(1);
        ++clicks;
    });
    const auto late = pages(1).click.subscribe([&] { ++clicks; });
    pages(1).userClick();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(pages.count(), 1);
}

struct ComboBoxTest : testing::Test {
    ComboBox combo{u"cboClassType"};
    std::vector<int> clicks;
    Subscription handler = combo.click.subscribe([this] { clicks.push_back(combo.listIndex()); });
    void SetUp() override {
        for (const char16_t* item : {u"收款单据", u"付款单据", u"发票"})
            combo.addItem(item);
    }
};

TEST_F(ComboBoxTest, ClicksAtEverySelectionFromCode) {
    EXPECT_EQ(combo.text(), u"");
    combo.setListIndex(1);
    combo.setListIndex(1);
    EXPECT_EQ(combo.text(), u"付款单据");
    combo.setListIndex(-1);
    EXPECT_EQ(combo.text(), u"");
    EXPECT_EQ(clicks, (std::vector{1, 1, -1}));
}

TEST_F(ComboBoxTest, RefusesPositionsOutsideOfTheListWithoutAClick) {
    combo.setListIndex(2);
    for (const int index : {-2, 3})
        EXPECT_EQ(errorOf([&] { combo.setListIndex(index); }), errorNumber::invalidPropertyValue) << index;
    EXPECT_EQ(combo.listIndex(), 2);
    EXPECT_EQ(clicks, std::vector{2});
}

TEST_F(ComboBoxTest, ClearsWithoutAClick) {
    combo.setListIndex(0);
    combo.clear();
    EXPECT_EQ(combo.listIndex(), -1);
    EXPECT_EQ(combo.count(), 0);
    EXPECT_EQ(clicks, std::vector{0});
}

TEST_F(ComboBoxTest, AUserSelectsOnlyWhatIsEnabledAndShown) {
    combo.setEnabled(false);
    combo.userSelect(1);
    combo.setEnabled(true);
    combo.setVisible(false);
    combo.userSelect(1);
    combo.setVisible(true);
    combo.userSelect(2);
    EXPECT_EQ(clicks, std::vector{2});
}

TEST_F(ComboBoxTest, AHandlerMaySelectAgain) {
    const auto correcting = combo.click.subscribe([&] {
        if (combo.listIndex() == 2)
            combo.setListIndex(0);
    });
    combo.userSelect(2);
    EXPECT_EQ(combo.listIndex(), 0);
    EXPECT_EQ(clicks, (std::vector{2, 0})) << "the inner click runs inside the outer one";
}

/// Destroys a control from a handler of its `changed`, where its own event is still to come.
template <class T>
void destroyFromItsView(void (*act)(T&)) {
    auto control = std::make_unique<T>(u"control");
    if constexpr (std::is_same_v<T, ComboBox>)
        control->addItem(u"全部");
    int calls = 0;
    const auto view = control->changed.subscribe([&] {
        ++calls;
        control.reset();
    });
    act(*control);
    EXPECT_EQ(calls, 1);
}

TEST(Control, MayBeDestroyedByItsView) {
    destroyFromItsView<ComboBox>([](ComboBox& c) { c.setListIndex(0); });
    destroyFromItsView<CheckBox>([](CheckBox& c) { c.userClick(); });
    destroyFromItsView<ScrollBar>([](ScrollBar& c) { c.setValue(3); });
    destroyFromItsView<ScrollBar>([](ScrollBar& c) { c.setMaximum(3); });
    destroyFromItsView<TextBox>([](TextBox& c) { c.setText(u"x"); });
}

TEST(ComboBox, MayBeDestroyedByItsClick) {
    auto combo = std::make_unique<ComboBox>(u"cmbFilter", 1);
    combo->addItem(u"全部");
    const auto handler = combo->click.subscribe([&] { combo.reset(); });
    combo->setListIndex(0);
    EXPECT_EQ(combo, nullptr);
}

} // namespace
} // namespace orv::ui
