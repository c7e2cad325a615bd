#include "metadata/Records.h"

#include "automation/Text.h"
#include "sortcols/ColumnGrid.h"
#include "sortcols/SortGrid.h"

#include <gtest/gtest.h>

#include <functional>

namespace orv::sortcols {
namespace {

using automation::toUtf8;
using tests::CatalogueBuilder;

/// The sort grid of three fields: two of the header page, one of an entry page.
class SortGridTest : public testing::Test {
  protected:
    SortGridTest() {
        fields.field({{u"FKey", u"FBillNo"}, {u"FCaption", u"单据号"}})
            .field({{u"FKey", u"FDate"}, {u"FCaption", u"日期"}})
            .field({{u"FKey", u"FQty"}, {u"FCaption", u"数量"}, {u"FPage", 2}});
        sort.layOut();
        sort.setFieldList(u"\t" + sortItem(u"单据号", u"FBillNo") + u"\t" + sortItem(u"日期", u"FDate") + u"\t" +
                          sortItem(u"数量", u"FQty"));
    }
    /// "ascending descending" of a row; "-" for a cell that is no check box.
    std::string directions(int row) const {
        std::string result;
        for (const int column : {SortGrid::ascendingColumn, SortGrid::descendingColumn})
            result += grid.cellType(column, row) != ui::CellType::checkBox ? "-"
                      : grid.isChecked(column, row)                        ? "1"
                                                                           : "0";
        return result;
    }
    std::pair<std::string, std::string> sortStrings(std::u16string head = {}, std::u16string entry = {}) {
        auto catalogue = fields.catalogue();
        appendSortStrings(grid, sort, catalogue, all, ids, head, entry);
        return {toUtf8(head), toUtf8(entry)};
    }

    CatalogueBuilder fields;
    ui::Spread grid{u"vsOrder"};
    SortGrid sort{grid};
    automation::Dictionary all = automation::makeDictionary();
    automation::Dictionary ids = automation::makeDictionary();
};

TEST_F(SortGridTest, StartsARowAscendingAndKeepsOneDirection) {
    EXPECT_EQ(directions(1), "--");
    grid.userChoose(1, 1, 1);
    EXPECT_EQ(directions(1), "10");
    grid.userToggle(SortGrid::descendingColumn, 1);
    EXPECT_EQ(directions(1), "01");
    grid.userToggle(SortGrid::descendingColumn, 1);
    EXPECT_EQ(directions(1), "01") << "a second click on the same direction keeps it";
    grid.userChoose(1, 1, 2);
    EXPECT_EQ(directions(1), "01") << "another field keeps the direction";
    grid.userChoose(1, 1, 0);
    EXPECT_EQ(directions(1), "--");
}

TEST_F(SortGridTest, DropsADuplicateSilently) {
    grid.userChoose(1, 1, 1);
    grid.userChoose(1, 2, 1);
    EXPECT_EQ(grid.comboSelection(1, 2), 0);
    EXPECT_EQ(grid.text(1, 2), u"");
    EXPECT_EQ(directions(2), "--");
    EXPECT_EQ(directions(1), "10");
}

TEST_F(SortGridTest, WritesHeaderAndEntryListsWithTheirAsymmetry) {
    EXPECT_EQ(sortStrings(u"keep,", u"keep,"), std::pair(std::string("keep,"), std::string("keep,")))
        << "without rows nothing is touched";
    grid.userChoose(1, 1, 1);
    grid.userChoose(1, 3, 2);
    grid.userToggle(SortGrid::descendingColumn, 3);
    grid.userChoose(1, 4, 3);
    EXPECT_EQ(sortStrings(), std::pair(std::string("t.FBillNo  ASC ,t.FDate  DESC "), std::string("t.FQty  ASC ")));
    EXPECT_EQ(sortStrings(u"t.FDateX ASC,", u"t.FQty  ASC ,"),
              std::pair(std::string("t.FDateX ASC,t.FBillNo  ASC "), std::string("t.FQty  ASC ,t.FQty  ASC ")))
        << "a header name found in the text is passed over, an entry name is appended again";
    EXPECT_TRUE(all.exists(u"FQty"));
    EXPECT_TRUE(ids.exists(u"FBillNo"));
}

TEST_F(SortGridTest, SortsDescendingWithoutAnyDirection) {
    grid.userChoose(1, 1, 1);
    grid.clearText(SortGrid::ascendingColumn, 1, SortGrid::descendingColumn, 1);
    EXPECT_EQ(sortStrings().first, "t.FBillNo  DESC ");
}

class ColumnGridTest : public testing::Test {
  protected:
    ColumnGridTest() {
        fields.field({{u"FKey", u"FBillNo"}, {u"FCaption", u"单据号"}, {u"FVisible", 1}})
            .field({{u"FKey", u"FCost"}, {u"FVisible", true}, {u"FAccessMask", u"COST"}})
            .field({{u"FKey", u"FHidden"}, {u"FVisible", 0}})
            .field({{u"FKey", u"FDebit"}, {u"FCaption", u"金额+借方"}, {u"FVisible", true}, {u"FPage", 2}})
            .field({{u"FKey", u"FOther"}, {u"FVisible", true}, {u"FPage", 3}});
        columns.layOut();
    }
    void fill(std::u16string_view pages) {
        auto catalogue = fields.catalogue();
        columns.fill(catalogue, metadata::PageSelection(pages), access);
    }
    std::string keys() const {
        std::string result;
        for (const auto& setting : columns.settings())
            result += toUtf8(setting.key) + " ";
        return result;
    }

    CatalogueBuilder fields;
    automation::Dictionary access = tests::record({{u"COST", 0}, {u"OTHER", 1}});
    std::vector<std::u16string> warnings;
    ui::Spread grid{u"vsHideColumn"};
    std::function<void()> whileWarned = [] {}; ///< what the host does while the message box stands
    ColumnGrid columns{grid, [this](std::u16string_view text) {
                           warnings.emplace_back(text);
                           whileWarned();
                       }};
};

TEST_F(ColumnGridTest, ListsTheFieldsThatTheUserMaySee) {
    fill(u",1*,2,");
    EXPECT_EQ(keys(), "FBillNo FDebit ");
    EXPECT_EQ(grid.text(1, 1), u"单据号");
    EXPECT_EQ(grid.text(2, 1), u"");
    EXPECT_EQ(grid.text(1, 2), u"金额");
    EXPECT_EQ(grid.text(2, 2), u"借方");
    EXPECT_EQ(grid.text(ColumnGrid::widthColumn, 2), u"17.64");
    EXPECT_EQ(grid.text(ColumnGrid::positionColumn, 2), u"2");
    EXPECT_TRUE(grid.isChecked(ColumnGrid::shownColumn, 2));
    fill(u",1*,3,");
    EXPECT_EQ(keys(), "FBillNo FOther ");
    access = {};
    fill(u",1*,");
    EXPECT_EQ(keys(), "FBillNo FCost ") << "without an access table nothing is hidden";
}

TEST_F(ColumnGridTest, RefusesWidthsAbove150) {
    fill(u",1,");
    grid.userMoveTo(ColumnGrid::widthColumn, 1);
    grid.userType(ColumnGrid::widthColumn, 1, u"150");
    EXPECT_TRUE(grid.userMoveTo(1, 1));
    EXPECT_TRUE(warnings.empty());
    grid.userMoveTo(ColumnGrid::widthColumn, 1);
    grid.userType(ColumnGrid::widthColumn, 1, u"150.5");
    EXPECT_FALSE(grid.userMoveTo(1, 1));
    EXPECT_EQ(warnings, std::vector<std::u16string>{u"列的宽度不应该大于150毫米，请重新输入。"});
    EXPECT_EQ(grid.text(ColumnGrid::widthColumn, 1), u"150");
    EXPECT_TRUE(grid.editMode());
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{ColumnGrid::widthColumn, 1}));
}

TEST_F(ColumnGridTest, SurvivesAHostThatFillsTheGridAnewWhileTheWarningStands) {
    fill(u",1,2,3,");
    grid.userMoveTo(ColumnGrid::widthColumn, 3);
    grid.userType(ColumnGrid::widthColumn, 3, u"151");
    whileWarned = [this] { fill(u",1,"); };
    EXPECT_FALSE(grid.userMoveTo(1, 1));
    EXPECT_EQ(keys(), "FBillNo ");
    EXPECT_EQ(grid.text(ColumnGrid::widthColumn, 1), u"17.64") << "the row that was too wide is gone";
}

TEST_F(ColumnGridTest, MovesRowsWithAllTheirCells) {
    fill(u",1,2,3,");
    grid.userToggle(ColumnGrid::shownColumn, 1);
    EXPECT_EQ(keys(), "FBillNo FDebit FOther ");
    columns.moveUp();
    EXPECT_EQ(keys(), "FBillNo FDebit FOther ") << "no move at the first row";
    columns.moveDown();
    EXPECT_EQ(keys(), "FDebit FBillNo FOther ") << "the first row is taken when none is current";
    EXPECT_FALSE(grid.isChecked(ColumnGrid::shownColumn, 2));
    columns.moveDown();
    columns.moveDown();
    EXPECT_EQ(keys(), "FDebit FOther FBillNo ");
    EXPECT_EQ(columns.currentRow(), 3);
    grid.userClick(0, 0);
    EXPECT_EQ(columns.currentRow(), 0);
    grid.userMoveTo(1, 2);
    columns.moveUp();
    EXPECT_EQ(keys(), "FOther FDebit FBillNo ") << "keys go to a row as a click does";
    EXPECT_EQ(columns.currentRow(), 1);
    columns.setAllShown(false);
    for (const auto& setting : columns.settings())
        EXPECT_FALSE(setting.shown);
}

} // namespace
} // namespace orv::sortcols
