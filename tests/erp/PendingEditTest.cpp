#include "ControlOnHost.h"

#include "automation/Coercion.h"
#include "support/PairList.h"

#include <optional>

// What a user has typed into a cell counts before it is confirmed, wherever the grids are read.
namespace orv::erp {
namespace {

using namespace testing;

constexpr int receipts = 1000201;
constexpr int field = 2;
constexpr int value = 4;

/// Stands for the view of a grid with an open edit box.
class Typing {
  public:
    Typing(ui::Spread& grid, int column, int row, std::u16string text)
        : onConfirm_(grid.confirmEdit.subscribe([&grid, column, row, text = std::move(text)](bool& refused) {
              refused = !grid.userType(column, row, text);
          })) {
        grid.setActiveCell(column, row);
        grid.setEditMode(true);
    }

  private:
    ui::Subscription onConfirm_;
};

class PendingEdit : public ControlOnHost {
  protected:
    void SetUp() override {
        open(receipts);
        choose(field, 1, u"单据编号");
    }
    std::string storedConditions() { return utf8(automation::toText(filter.get_dctProFileEntry().get(u"Relation"))); }
};

TEST_F(PendingEdit, CountsInTheFilterText) {
    const Typing typing(grid(), value, 1, u"SK-9");
    std::u16string sql;
    EXPECT_TRUE(filter.GetFilterSql(sql));
    EXPECT_NE(sql.find(u"'SK-9'"), std::u16string::npos) << utf8(sql);
    EXPECT_FALSE(grid().editMode());
}

TEST_F(PendingEdit, CountsInASchemesRecordAndSurvivesAChangeOfPages) {
    {
        const Typing typing(grid(), value, 1, u"SK-9");
        EXPECT_NE(storedConditions().find("SK-9"), std::string::npos) << storedConditions();
    }
    const Typing typing(grid(), value, 1, u"SK-10");
    filter.controls().chkPage(0).click.raise();
    EXPECT_EQ(utf8(grid().text(value, 1)), "SK-10");
}

TEST_F(PendingEdit, GoesWithItsLineWhenALineIsInsertedAbove) {
    const Typing typing(grid(), value, 1, u"SK-9");
    filter.controls().cmdInsert.press();
    EXPECT_EQ(utf8(grid().text(value, 2)), "SK-9");
}

TEST_F(PendingEdit, ARefusedTextStaysBeingEditedAndKeepsItsPage) {
    choose(field, 1, u"日期");
    grid().userType(value, 1, u"2024-02-10");
    const Typing typing(grid(), value, 1, u"no date");
    std::u16string sql;
    EXPECT_TRUE(filter.GetFilterSql(sql));
    EXPECT_NE(sql.find(u"2024-02-10"), std::u16string::npos) << "the old content counts: " << utf8(sql);
    EXPECT_TRUE(grid().editMode());
    filter.controls().tbFilter.userSelect(2);
    EXPECT_EQ(filter.controls().tbFilter.selected(), 1);
}

TEST_F(PendingEdit, ATypedWidthIsCheckedBeforeItIsStored) {
    ui::Spread& columns = filter.controls().vsHideColumn;
    const Typing typing(columns, 4, 1, u"200");
    const std::u16string widths = automation::toText(filter.get_dctProFileEntry().get(u"ColWidth"));
    EXPECT_EQ(shown.messages, std::vector<std::string>{"列的宽度不应该大于150毫米，请重新输入。"});
    EXPECT_EQ(utf8(support::lookupPair(widths, columns.text(6, 1))), "8504") << "150 mm in twips";
    EXPECT_TRUE(columns.editMode()) << "the user is asked again";
}

} // namespace
} // namespace orv::erp
