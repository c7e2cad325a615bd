#include "Support.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace orv::ui {
namespace {

/// A grid of 8 columns and 10 rows that writes down its events.
struct SpreadUserTest : testing::Test {
    Grid grid{8, 10};
    std::string events;
    std::vector<Subscription> handlers;

    void SetUp() override {
        const auto record = [this](const char* name) {
            return [this, name](int a, int b) {
                events += name + std::string(" ") + std::to_string(a) + "," + std::to_string(b) + ";";
            };
        };
        handlers.push_back(grid.comboSelectionChange.subscribe(record("choose")));
        handlers.push_back(grid.cellChanged.subscribe(record("changed")));
        handlers.push_back(grid.buttonClicked.subscribe(record("button")));
        handlers.push_back(grid.click.subscribe(record("click")));
        handlers.push_back(grid.keyDown.subscribe(record("key")));
        handlers.push_back(grid.activeCellChanged.subscribe(record("active")));
        handlers.push_back(grid.leaveCell.subscribe([this](int column, int row, int newColumn, int newRow, bool&) {
            events += "leave " + std::to_string(column) + "," + std::to_string(row) + "->" + std::to_string(newColumn) +
                      "," + std::to_string(newRow) + ";";
        }));
        handlers.push_back(grid.leaveRow.subscribe([this](int row, int newRow, bool&) {
            events += "leaveRow " + std::to_string(row) + "->" + std::to_string(newRow) + ";";
        }));
        handlers.push_back(
            grid.editModeChanged.subscribe([this](bool on) { events += on ? "edit on;" : "edit off;"; }));
    }
    std::string taken() { return std::exchange(events, {}); }
};

TEST_F(SpreadUserTest, MovingAsksForTheCellAndThenForTheRow) {
    EXPECT_TRUE(grid.userMoveTo(3, 1));
    EXPECT_EQ(taken(), "leave 1,1->3,1;active 3,1;");
    EXPECT_TRUE(grid.userMoveTo(3, 2));
    EXPECT_EQ(taken(), "leave 3,1->3,2;leaveRow 1->2;active 3,2;");
    EXPECT_TRUE(grid.userMoveTo(3, 2));
    EXPECT_EQ(taken(), "");
    grid.setActiveCell(1, 1);
    EXPECT_EQ(taken(), "active 1,1;") << "code asks nobody";
}

TEST_F(SpreadUserTest, ACancelledMoveLeavesEverythingAsItWas) {
    const auto byCell =
        grid.leaveCell.subscribe([](int, int, int newColumn, int, bool& cancel) { cancel = newColumn == 8; });
    const auto byRow = grid.leaveRow.subscribe([](int, int newRow, bool& cancel) { cancel = newRow == 9; });
    EXPECT_FALSE(grid.userMoveTo(8, 2));
    EXPECT_EQ(taken(), "leave 1,1->8,2;") << "the row is not asked any more";
    EXPECT_FALSE(grid.userMoveTo(2, 9));
    EXPECT_EQ(taken(), "leave 1,1->2,9;leaveRow 1->9;");
    EXPECT_EQ(grid.activeCell(), (CellRef{1, 1}));
    grid.userClick(8, 3);
    EXPECT_EQ(taken(), "click 8,3;leave 1,1->8,3;");
}

TEST_F(SpreadUserTest, AWidthCheckMayPutTheCellBackIntoEditing) {
    grid.setText(4, 1, u"150.5");
    grid.setActiveCell(4, 1);
    grid.setEditMode(true);
    grid.setEditMode(false);
    taken();
    const auto check = grid.leaveCell.subscribe([&](int column, int row, int, int, bool& cancel) {
        if (column == 4 && grid.number(column, row) > 150) {
            grid.setText(column, row, u"150");
            grid.setEditMode(true);
            cancel = true;
        }
    });
    EXPECT_FALSE(grid.userMoveTo(5, 1));
    EXPECT_EQ(taken(), "leave 4,1->5,1;edit on;");
    EXPECT_TRUE(grid.editMode());
    EXPECT_TRUE(grid.userMoveTo(5, 1));
    EXPECT_EQ(taken(), "leave 4,1->5,1;edit off;active 5,1;");
}

TEST_F(SpreadUserTest, GoingToAnotherControlConfirmsWhatIsTypedAndAsksForTheCellOnly) {
    bool refuses = true;
    const auto typing = grid.confirmEdit.subscribe([&](bool& refused) {
        events += "confirm;";
        refused = refuses || !grid.userType(1, 1, u"x");
    });
    EXPECT_TRUE(grid.finishEdit());
    EXPECT_EQ(taken(), "") << "nothing is being typed";
    EXPECT_TRUE(grid.userLeave());
    EXPECT_EQ(taken(), "leave 1,1->-1,-1;") << "a cell is left, also one that was not edited";

    grid.setEditMode(true);
    taken();
    EXPECT_FALSE(grid.finishEdit());
    EXPECT_EQ(taken(), "confirm;");
    EXPECT_TRUE(grid.editMode()) << "a refused text goes on being edited";
    refuses = false;
    EXPECT_TRUE(grid.finishEdit());
    EXPECT_EQ(taken(), "confirm;changed 1,1;edit off;leave 1,1->-1,-1;");
    EXPECT_EQ(grid.text(1, 1), u"x");

    const auto check =
        grid.leaveCell.subscribe([this](int, int, int, int, bool& cancel) { cancel = grid.userLeave(); });
    EXPECT_FALSE(grid.userLeave());
    EXPECT_EQ(taken(), "leave 1,1->-1,-1;") << "a handler is not asked from within itself";
}

TEST_F(SpreadUserTest, SomeCellsCannotBeMovedTo) {
    grid.setColumnHidden(6, true);
    EXPECT_FALSE(grid.userMoveTo(6, 2));
    EXPECT_FALSE(grid.userMoveTo(0, 2));
    EXPECT_FALSE(grid.userMoveTo(2, 0));
    grid.userClick(2, 0);
    grid.userClick(0, 0);
    EXPECT_EQ(taken(), "click 2,0;click 0,0;") << "headers are clicked, never current";
    grid.addSpan({3, 4, 3, 1});
    EXPECT_TRUE(grid.userMoveTo(5, 4));
    EXPECT_EQ(grid.activeCell(), (CellRef{3, 4})) << "a covered cell stands for its span";
    taken();
    grid.setEnabled(false);
    EXPECT_FALSE(grid.userMoveTo(1, 1));
    grid.userClick(1, 1);
    grid.userKeyDown(key::f7, 0);
    EXPECT_EQ(taken(), "");
}

TEST_F(SpreadUserTest, LeaveHandlersMayChangeTheGrid) {
    struct Case {
        const char* name;
        void (*act)(Spread&);
        CellRef target;
        bool moved;
        CellRef active;
    };
    const std::vector<Case> cases = {
        {"rows cut off before the target", [](Spread& g) { g.setMaxRows(4); }, {2, 8}, false, {1, 1}},
        {"rows cut off behind the target", [](Spread& g) { g.setMaxRows(4); }, {2, 3}, true, {2, 3}},
        {"all rows gone", [](Spread& g) { g.setMaxRows(0); }, {2, 3}, false, {1, 0}},
        {"a span laid over the target",
         [](Spread& g) {
             g.addSpan({2, 3, 2, 1});
         },
         {3, 3},
         true,
         {2, 3}},
        {"another cell made current", [](Spread& g) { g.setActiveCell(8, 1); }, {2, 3}, true, {2, 3}},
        {"a user's move meanwhile", [](Spread& g) { EXPECT_FALSE(g.userMoveTo(7, 7)); }, {2, 3}, true, {2, 3}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Grid changed(8, 10);
        int asked = 0;
        const auto handler = changed.leaveCell.subscribe([&](int, int, int, int, bool&) {
            ++asked;
            c.act(changed);
        });
        EXPECT_EQ(changed.userMoveTo(c.target.column, c.target.row), c.moved);
        EXPECT_EQ(changed.activeCell(), c.active);
        EXPECT_EQ(asked, 1);
    }
}

TEST_F(SpreadUserTest, AThrowingLeaveHandlerDoesNotBlockLaterMoves) {
    {
        const auto failing =
            grid.leaveCell.subscribe([](int, int, int, int, bool&) { throw std::runtime_error("host"); });
        EXPECT_THROW(grid.userMoveTo(2, 2), std::runtime_error);
        EXPECT_EQ(grid.activeCell(), (CellRef{1, 1}));
    }
    EXPECT_TRUE(grid.userMoveTo(2, 2));
}

TEST_F(SpreadUserTest, TypingSetsCheckedTextsAndTellsOfThem) {
    grid.setFormat(4, 1, {.type = CellType::wholeNumber, .minimum = 0, .maximum = 366});
    grid.setFormat(4, 2, {.type = CellType::date, .earliestDate = u"01011900"});
    grid.setFormat(4, 3, {.type = CellType::staticText});
    grid.setLocked(4, 4, true);
    grid.addSpan({4, 5, 3, 1});
    struct Case {
        int column, row;
        const char16_t* typed;
        bool taken;
        const char16_t* text;
    };
    for (const Case& c : {Case{4, 1, u"30", true, u"30"}, Case{4, 1, u"400", false, u"30"},
                          Case{4, 2, u"2024-02-01", true, u"02012024"}, Case{4, 3, u"x", false, u""},
                          Case{4, 4, u"x", false, u""}, Case{4, 0, u"x", false, u""}, Case{0, 4, u"x", false, u""}}) {
        SCOPED_TRACE(testing::Message() << "column " << c.column << " row " << c.row << " " << shown(c.typed));
        EXPECT_EQ(grid.userType(c.column, c.row, c.typed), c.taken);
        EXPECT_EQ(shown(grid.text(c.column, c.row)), shown(c.text));
        const std::string cell = std::to_string(c.column) + "," + std::to_string(c.row);
        EXPECT_EQ(taken(), c.taken ? "changed " + cell + ";" : "");
    }
    EXPECT_EQ(grid.shownText(4, 2), u"2024-02-01");
    EXPECT_TRUE(grid.userType(6, 5, u"in the span"));
    EXPECT_EQ(grid.text(4, 5), u"in the span");
    EXPECT_EQ(taken(), "changed 4,5;");
}

TEST_F(SpreadUserTest, ChoosingTellsOfTheSelectionAndThenOfTheCell) {
    grid.setFormat(2, 3, combo);
    grid.setComboList(2, 3, u"a\tb");
    EXPECT_TRUE(grid.userChoose(2, 3, 1));
    EXPECT_EQ(taken(), "choose 2,3;changed 2,3;");
    EXPECT_TRUE(grid.userType(2, 3, u"a"));
    EXPECT_EQ(grid.comboSelection(2, 3), 0);
    EXPECT_EQ(taken(), "choose 2,3;changed 2,3;");
    for (const int position : {-2, 2})
        EXPECT_FALSE(grid.userChoose(2, 3, position)) << position;
    EXPECT_FALSE(grid.userType(2, 3, u"beyond"));
    EXPECT_FALSE(grid.userChoose(1, 3, 0)) << "no combo cell";
    EXPECT_EQ(taken(), "");
    EXPECT_TRUE(grid.userType(2, 3, u""));
    EXPECT_EQ(grid.comboSelection(2, 3), -1);
    EXPECT_EQ(taken(), "choose 2,3;changed 2,3;");
    grid.setLocked(2, 3, true);
    EXPECT_FALSE(grid.userChoose(2, 3, 0));
    grid.setLocked(2, 3, false);
    grid.setFormat(2, 3, {.type = CellType::comboBox, .freeText = true});
    EXPECT_TRUE(grid.userType(2, 3, u"beyond"));
    EXPECT_EQ(grid.text(2, 3), u"beyond");
    EXPECT_EQ(taken(), "changed 2,3;");
}

TEST_F(SpreadUserTest, ASelectionHandlerMayChooseAgainOrRemoveTheCell) {
    grid.setFormat(2, 3, combo);
    grid.setComboList(2, 3, u"\ta\tb");
    std::string texts;
    const auto again = grid.comboSelectionChange.subscribe([&](int column, int row) {
        texts += shown(grid.text(column, row)) + ";";
        if (grid.comboSelection(column, row) == 2)
            grid.userChoose(column, row, 1);
        if (grid.comboSelection(column, row) == 0)
            grid.setMaxRows(1);
    });
    EXPECT_TRUE(grid.userChoose(2, 3, 2));
    EXPECT_EQ(texts, "b;a;");
    EXPECT_EQ(taken(), "choose 2,3;choose 2,3;changed 2,3;changed 2,3;");
    EXPECT_TRUE(grid.userChoose(2, 3, 0));
    EXPECT_EQ(taken(), "choose 2,3;") << "no change of a cell that is no more";
}

TEST_F(SpreadUserTest, OnlyUnlockedCheckBoxesToggle) {
    grid.setFormat(3, 1, checkBox);
    EXPECT_TRUE(grid.userToggle(3, 1));
    EXPECT_TRUE(grid.isChecked(3, 1));
    EXPECT_TRUE(grid.userToggle(3, 1));
    EXPECT_EQ(grid.text(3, 1), u"0");
    EXPECT_EQ(taken(), "button 3,1;button 3,1;");
    grid.setLocked(3, 1, true);
    EXPECT_FALSE(grid.userToggle(3, 1));
    EXPECT_FALSE(grid.userToggle(4, 1));
    grid.userKeyDown(key::f7, 1);
    EXPECT_EQ(taken(), "key 118,1;");
}

TEST_F(SpreadUserTest, EditingNeedsAnEditableCellAndEndsWithIt) {
    grid.setEditMode(true);
    grid.setEditMode(true);
    EXPECT_EQ(taken(), "edit on;");
    grid.setFormat(1, 2, {.type = CellType::staticText});
    grid.setLocked(2, 1, true);
    EXPECT_TRUE(grid.editMode()) << "other cells do not matter";
    grid.setFormat(1, 1, {.type = CellType::staticText});
    EXPECT_EQ(taken(), "edit off;");
    grid.setActiveCell(2, 1);
    grid.setEditMode(true);
    EXPECT_FALSE(grid.editMode());
    grid.setLocked(2, 1, false);
    grid.setEditMode(true);
    grid.setLocked(2, 1, true);
    EXPECT_FALSE(grid.editMode());
    grid.setLocked(2, 1, false);
    grid.setEditMode(true);
    grid.insertRows(5, 1);
    EXPECT_FALSE(grid.editMode());
}

TEST_F(SpreadUserTest, AHandlerMayGoElsewhereWhenEditingEnds) {
    grid.setEditMode(true);
    const auto elsewhere = grid.editModeChanged.subscribe([&](bool on) {
        if (!on)
            grid.setActiveCell(7, 7);
    });
    grid.setActiveCell(2, 2);
    EXPECT_EQ(taken(), "edit on;edit off;active 7,7;") << "the view hears of the cell that is current in the end";
}

/// Subscribes `handler` to a signal of any arguments.
template <class... Args>
Subscription on(Signal<Args...>& signal, std::function<void()> handler) {
    return signal.subscribe([handler = std::move(handler)](Args...) { handler(); });
}

TEST(SpreadUser, AnyHandlerMayDestroyTheGrid) {
    using Handler = std::function<void()>;
    struct Case {
        const char* name;
        Subscription (*subscribe)(Spread&, Handler);
        void (*act)(Spread&);
    };
    const auto updated = [](Spread& g, Handler h) { return on(g.cellUpdated, std::move(h)); };
    const auto chosen = [](Spread& g, Handler h) { return on(g.comboSelectionChange, std::move(h)); };
    const auto clicked = [](Spread& g, Handler h) { return on(g.click, std::move(h)); };
    const auto leftCell = [](Spread& g, Handler h) { return on(g.leaveCell, std::move(h)); };
    const auto leftRow = [](Spread& g, Handler h) { return on(g.leaveRow, std::move(h)); };
    const auto edited = [](Spread& g, Handler h) { return on(g.editModeChanged, std::move(h)); };
    const auto activated = [](Spread& g, Handler h) { return on(g.activeCellChanged, std::move(h)); };
    const std::vector<Case> cases = {
        {"repainted, then clicked", updated, [](Spread& g) { g.userToggle(3, 1); }},
        {"repainted, then changed", updated, [](Spread& g) { g.userType(1, 1, u"x"); }},
        {"repainted, then no longer edited", updated, [](Spread& g) { g.setFormat(2, 1, {}); }},
        {"chosen", chosen, [](Spread& g) { g.userChoose(2, 1, 0); }},
        {"clicked", clicked, [](Spread& g) { g.userClick(2, 2); }},
        {"left a cell", leftCell, [](Spread& g) { EXPECT_FALSE(g.userMoveTo(2, 2)); }},
        {"left a row", leftRow, [](Spread& g) { EXPECT_FALSE(g.userMoveTo(2, 2)); }},
        {"ended editing by a move", edited, [](Spread& g) { g.userMoveTo(2, 2); }},
        {"ended editing by moved rows", edited, [](Spread& g) { g.moveRow(1, 2); }},
        {"lost its active row", activated, [](Spread& g) { g.setMaxRows(0); }},
        {"spanned", activated,
         [](Spread& g) {
             g.addSpan({1, 1, 2, 1});
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        auto grid = std::make_unique<Grid>(3, 3);
        grid->setFormat(2, 1, combo);
        grid->setComboList(2, 1, u"a");
        grid->setFormat(3, 1, checkBox);
        grid->setActiveCell(2, 1);
        grid->setEditMode(true);
        int destroyed = 0;
        const auto handler = c.subscribe(*grid, [&] {
            ++destroyed;
            grid.reset();
        });
        c.act(*grid);
        EXPECT_EQ(destroyed, 1);
    }
}

} // namespace
} // namespace orv::ui
