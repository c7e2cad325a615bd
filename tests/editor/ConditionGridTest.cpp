#include "editor/ConditionGridFixture.h"

#include "conditions/GridRows.h"

#include <string>

namespace orv::editor {
namespace {

using tests::CatalogueBuilder;
using tests::ConditionGridFixture;
using ui::CellSpan;
using ui::CellType;

class ConditionGridTest : public ConditionGridFixture {
  protected:
    ConditionGridTest() {
        service->sets[u"text"] = {
            {{u"FName", u"等于"}, {u"FOperate", u"="}, {u"FInput", true}, {u"FInputCtlType", u"0"}},
            {{u"FName", u"包含"}, {u"FOperate", u" LIKE "}, {u"FInput", true}, {u"FInputCtlType", u"0"}},
            {{u"FName", u"为空"}, {u"FOperate", u"="}, {u"FValue", u"ISNULL"}, {u"FInput", false}}};
        service->sets[u"date"] = {
            {{u"FName", u"早于"}, {u"FOperate", u"<"}, {u"FInput", true}, {u"FInputCtlType", u"0"}}};
        service->sets[u"none"] = {};
        CatalogueBuilder fields;
        fields.field({{u"FKey", u"FBillNo"}, {u"FCaption", u"单据号"}, {u"FCondition", u"text"}, {u"FCtlType", 999}})
            .field({{u"FKey", u"FDate"}, {u"FColType", 0}, {u"FCondition", u"date"}})
            .field({{u"FKey", u"FTime"}, {u"FColType", 0}, {u"FCondition", u"date"}, {u"FSourceType", 13}})
            .field({{u"FKey", u"FMute"}, {u"FCondition", u"none"}, {u"FCtlType", 1}, {u"FEditLen", 5}})
            .field({{u"FKey", u"FLost"}, {u"FCondition", u"gone"}});
        offer(fields);
    }
    const conditions::ConditionRow& row(int line) { return conditions.rows()->at(static_cast<std::size_t>(line - 1)); }
};

TEST_F(ConditionGridTest, LaysOutThirtyLinesOfEightColumns) {
    EXPECT_EQ(grid.maxRows(), 30);
    EXPECT_EQ(grid.maxCols(), 8);
    const std::u16string headings[] = {u"", u"项目名称", u"比较", u"比较值", u"", u"比较值", u"", u"逻辑"};
    for (int column = 1; column <= 8; ++column)
        EXPECT_EQ(grid.text(column, 0), headings[column - 1]) << column;
    EXPECT_EQ(grid.comboItems(1, 30), (std::vector<std::u16string>{u"", u"(", u"((", u"((("}));
    EXPECT_EQ(grid.comboItems(7, 1), (std::vector<std::u16string>{u"", u")", u"))", u")))"}));
    EXPECT_EQ(grid.comboItems(8, 1), (std::vector<std::u16string>{u"并且", u"或"}));
    EXPECT_EQ(grid.spanAt(4, 30), (CellSpan{4, 30, 3, 1}));
}

TEST_F(ConditionGridTest, ChoosingAFieldFillsTheLine) {
    grid.userChoose(2, 2, 1);
    ASSERT_EQ(conditions.rows()->size(), 2U) << "rows grow up to the line";
    EXPECT_EQ(row(2).FFieldKey, u"FBillNo");
    EXPECT_EQ(row(2).FFieldName, u"t.FBillNo");
    EXPECT_EQ(row(2).FColType, 1);
    EXPECT_EQ(row(2).FCompareIndex, 1);
    EXPECT_EQ(row(2).FCompare, u"=");
    EXPECT_EQ(grid.comboSelection(3, 2), 0);
    EXPECT_EQ(grid.comboItems(3, 2).size(), 3U);
    EXPECT_EQ(grid.text(3, 2), std::u16string(u"等于").append(253, u' ') + u"1");
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{4, 2}));
    EXPECT_EQ(grid.format(4, 2).maxLength, 60) << "a text field that states no length";
    EXPECT_EQ(grid.cellBackColor(4, 2), 0xE8FDFDU);
    EXPECT_TRUE(row(1).FFieldKey.empty());
}

TEST_F(ConditionGridTest, AsksForEachComparisonSetOnce) {
    grid.userChoose(2, 1, 1);
    grid.userChoose(3, 1, 1);
    grid.userChoose(2, 2, 1);
    EXPECT_EQ(service->asked, 1);
    grid.userChoose(2, 3, 2);
    EXPECT_EQ(service->asked, 2);
}

TEST_F(ConditionGridTest, ClearingAFieldClearsTheLine) {
    grid.userChoose(2, 1, 1);
    grid.userChoose(1, 1, 2);
    grid.userChoose(7, 1, 1);
    grid.userChoose(8, 1, 1);
    grid.userType(4, 1, u"abc");
    grid.userChoose(2, 1, 0);
    for (int column = 1; column <= 8; ++column)
        EXPECT_EQ(grid.text(column, 1), u"") << column;
    EXPECT_TRUE(grid.comboItems(3, 1).empty());
    EXPECT_EQ(row(1).FColType, 500);
    EXPECT_TRUE(row(1).FFieldKey.empty());
    EXPECT_FALSE(row(1).HDict);
    EXPECT_FALSE(row(1).FCompareIndex);
}

TEST_F(ConditionGridTest, AnotherComparisonKeepsATypedTextAndAKeywordDropsIt) {
    grid.userChoose(2, 1, 1);
    grid.userType(4, 1, u"abc");
    grid.userChoose(3, 1, 1);
    EXPECT_EQ(row(1).FCompare, u" LIKE ");
    EXPECT_EQ(row(1).FCompareIndex, 2);
    EXPECT_EQ(grid.text(4, 1), u"abc");
    grid.userChoose(3, 1, 2);
    EXPECT_EQ(grid.text(4, 1), u"");
    grid.userChoose(3, 1, -1);
    EXPECT_FALSE(row(1).FCompareDct);
    EXPECT_TRUE(row(1).FCompare.empty());
}

TEST_F(ConditionGridTest, SplitsTheValueAreaForDateTimesAndRestoresIt) {
    grid.userChoose(2, 1, 3);
    EXPECT_EQ(grid.cellType(4, 1), CellType::date);
    EXPECT_EQ(grid.cellType(5, 1), CellType::time);
    EXPECT_EQ(grid.spanAt(4, 1), (CellSpan{4, 1, 1, 1}));
    EXPECT_EQ(grid.spanAt(6, 1), (CellSpan{5, 1, 2, 1}));
    grid.userType(5, 1, u"12:30");
    grid.userChoose(2, 1, 2);
    EXPECT_EQ(grid.cellType(4, 1), CellType::date);
    EXPECT_EQ(grid.spanAt(5, 1), (CellSpan{4, 1, 3, 1}));
    EXPECT_EQ(grid.text(5, 1), u"");
}

TEST_F(ConditionGridTest, AFieldWithoutComparisonsOrWithAFailingServiceLeavesTheListEmpty) {
    grid.userChoose(2, 1, 4);
    EXPECT_TRUE(grid.comboItems(3, 1).empty());
    EXPECT_EQ(grid.cellBackColor(4, 1), std::nullopt);
    EXPECT_EQ(grid.format(4, 1).maxLength, 5) << "the field's edit length holds all the same";
    EXPECT_TRUE(logged.empty());
    grid.userChoose(2, 2, 5);
    EXPECT_EQ(logged, std::vector<std::string>{"unknown set"});
    EXPECT_FALSE(row(2).FCompareDct);
}

TEST_F(ConditionGridTest, GuardsMovesBetweenLines) {
    EXPECT_FALSE(grid.userMoveTo(2, 2)) << "no blank line may be left between used ones";
    EXPECT_TRUE(warnings.empty());
    grid.userChoose(1, 1, 1);
    grid.setActiveCell(2, 1);
    EXPECT_FALSE(grid.userMoveTo(2, 2));
    EXPECT_EQ(warnings, std::vector<std::string>{"请选择过滤字段"});

    grid.userChoose(2, 1, 1);
    EXPECT_EQ(grid.comboSelection(8, 1), -1);
    EXPECT_TRUE(grid.userMoveTo(2, 2));
    EXPECT_EQ(grid.comboSelection(8, 1), 0) << "a move down chooses AND";
    EXPECT_FALSE(grid.userMoveTo(2, 5));
    EXPECT_TRUE(grid.userMoveTo(2, 1)) << "up is always allowed from a blank line";
}

/// Lines 1 to `count` hold the bill number with their own number as the value.
void fillLines(ui::Spread& grid, int count) {
    for (int line = 1; line <= count; ++line) {
        grid.userChoose(2, line, 1);
        grid.userType(4, line, automation::fromUtf8("v" + std::to_string(line)));
    }
}

std::string values(const ui::Spread& grid, int from, int to) {
    std::string result;
    for (int line = from; line <= to; ++line)
        result += automation::toUtf8(grid.text(4, line)) + " ";
    return result;
}

TEST_F(ConditionGridTest, InsertsAboveTheActiveLine) {
    fillLines(grid, 3);
    grid.userChoose(3, 2, 1);
    grid.userType(4, 2, u"v2");
    grid.setActiveCell(4, 2);
    conditions.insertRow();
    EXPECT_EQ(values(grid, 1, 5), "v1  v2 v3  ");
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{2, 2}));
    EXPECT_EQ(grid.comboSelection(3, 3), 1);
    EXPECT_EQ(row(3).FCompare, u" LIKE ") << "the record follows the comparison that the line shows";
    EXPECT_TRUE(row(2).FFieldKey.empty());

    fillLines(grid, 30);
    grid.setActiveCell(4, 30);
    conditions.insertRow();
    EXPECT_EQ(values(grid, 29, 30), "v29 v30 ") << "nothing on the last line";
    grid.setActiveCell(4, 29);
    conditions.insertRow();
    EXPECT_EQ(values(grid, 28, 30), "v28  v29 ") << "what was in the last line is lost";
}

TEST_F(ConditionGridTest, DeletesTheActiveLineAndKeepsTheLastOne) {
    fillLines(grid, 30);
    grid.setActiveCell(4, 1);
    conditions.deleteRow();
    EXPECT_EQ(values(grid, 1, 2), "v2 v3 ");
    EXPECT_EQ(values(grid, 28, 30), "v29 v30 v30 ");
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{3, 1}));
    grid.setActiveCell(2, 3);
    conditions.deleteRow();
    conditions.deleteRow();
    EXPECT_EQ(values(grid, 2, 4), "v3 v6 v7 ") << "pressed twice, the button deletes two lines at the same place";
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{2, 3}));
    conditions.clearAll();
    for (int line = 1; line <= 30; ++line)
        EXPECT_FALSE(conditions::IsFilterRowUsed(grid, line)) << line;
}

TEST_F(ConditionGridTest, WritesAndLoadsConditionTexts) {
    grid.userChoose(2, 1, 1);
    grid.userChoose(1, 1, 1);
    grid.userChoose(3, 1, 1);
    grid.userType(4, 1, u"a b");
    grid.userChoose(8, 1, 1);
    grid.userChoose(2, 3, 3);
    grid.userType(4, 3, u"2024-02-29");
    grid.userType(5, 3, u"13:05:09");
    grid.userChoose(7, 3, 1);
    const std::u16string text = conditions.conditionText();
    EXPECT_EQ(automation::toUtf8(text), "(##<&n_FBillNo##<&1##<&a b##<&##<&或##<&||"
                                        "##<&n_FTime##<&0##<&2024-02-29 13:05:09##<&)##<&##<&||");

    grid.userChoose(2, 5, 2);
    conditions.loadConditionText(u"  ");
    EXPECT_EQ(conditions.fieldPosition(5), 2) << "a blank text changes nothing";
    conditions.loadConditionText(text);
    EXPECT_EQ(conditions.conditionText(), text) << "now on lines 1 and 2";
    EXPECT_EQ(conditions.fieldPosition(2), 3);
    EXPECT_EQ(grid.text(5, 2), u"130509");
    EXPECT_EQ(row(1).FCompare, u" LIKE ");
    EXPECT_EQ(conditions.fieldPosition(5), 0);

    conditions.loadConditionText(u"##<&n_FGone##<&0##<&x##<&##<&并且##<&||(##<&N_FBILLNO##<&0##<&y##<&##<&##<&||");
    EXPECT_FALSE(conditions::IsFilterRowUsed(grid, 1)) << "a field that is gone leaves its line empty";
    EXPECT_EQ(logged.back(), "条件行 1 未载入：字段 n_FGone 不存在");
    EXPECT_EQ(row(2).FFieldKey, u"FBillNo") << "letter case does not count";
    selectedPages = metadata::PageSelection(u",2,");
    conditions.loadConditionText(text);
    EXPECT_EQ(conditions.conditionText(), u"") << "fields of other pages are not offered";
}

struct ShapeCase {
    const char* name;
    conditions::CompareEntry entry;
    tests::Entries field;
    ValueCellShape::Area area = ValueCellShape::Area::wide;
    ValueCellShape::List list = ValueCellShape::List::none;
    CellType type = CellType::edit;
    int decimals = 0;
    int maxLength = 0;
};

conditions::CompareEntry comparison(const char16_t* operation, const char16_t* control, const char16_t* source = u"",
                                    const char16_t* keyword = u"", bool input = true) {
    conditions::CompareEntry entry;
    entry.FOperate = operation;
    entry.FInputCtlType = control;
    entry.FDataSource = source;
    entry.FValue = keyword;
    entry.FInput = input;
    return entry;
}

TEST(ValueCell, HasAButtonWhereTheFieldHasADialogForOneValue) {
    const auto looksUp = [](const automation::Value& lookUpType, const conditions::CompareEntry& entry) {
        CatalogueBuilder builder;
        builder.field({{u"FKey", u"F"}, {u"FColType", 1}, {u"FLookUpType", lookUpType}});
        auto catalogue = builder.catalogue();
        return shapeValueCell(entry, *catalogue.field(1), {}).format.looksUp;
    };
    for (const int type : {1, 2, 3, 4, 5, 10})
        EXPECT_TRUE(looksUp(type, comparison(u"=", u"0"))) << type;
    for (const int type : {0, 6, 9, 11})
        EXPECT_FALSE(looksUp(type, comparison(u"=", u"0"))) << type;
    EXPECT_TRUE(looksUp(u"4", comparison(u"=", u"0"))) << "a number as a text";
    EXPECT_FALSE(looksUp(u"item", comparison(u"=", u"0"))) << "no number at all";
    EXPECT_TRUE(looksUp(1, comparison(u"=", u"1"))) << "a list that turns out empty";
    EXPECT_FALSE(looksUp(1, comparison(u"IN", u"2"))) << "a look-up would replace the other values";
    EXPECT_FALSE(looksUp(1, comparison(u"=", u"0", u"", u"ISNULL", false))) << "no value is asked for";
}

TEST(ValueCell, TakesItsShapeFromComparisonAndField) {
    using Area = ValueCellShape::Area;
    using List = ValueCellShape::List;
    const ShapeCase cases[] = {
        {"text", comparison(u"=", u"0"), {{u"FColType", 1}}},
        {"text with a length",
         comparison(u"=", u"0"),
         {{u"FColType", 1}, {u"FCtlType", 1}, {u"FEditLen", 12}},
         Area::wide,
         List::none,
         CellType::edit,
         0,
         12},
        {"text of the usual length",
         comparison(u"=", u"0"),
         {{u"FColType", 1}, {u"FCtlType", 999}},
         Area::wide,
         List::none,
         CellType::edit,
         0,
         60},
        {"several values are never limited",
         comparison(u" in ", u"0"),
         {{u"FColType", 1}, {u"FCtlType", 1}, {u"FEditLen", 12}}},
        {"a range of dates is text", comparison(u" BETWEEN ", u"0"), {{u"FColType", 0}}},
        {"a pattern is text", comparison(u" LIKE ", u"0"), {{u"FColType", 2}}},
        {"date", comparison(u">", u"0"), {{u"FColType", 0}}, Area::wide, List::none, CellType::date},
        {"date and time",
         comparison(u">", u"0"),
         {{u"FColType", 0}, {u"FSourceType", 13}},
         Area::dateTime,
         List::none,
         CellType::date},
        {"quantity",
         comparison(u"=", u"0"),
         {{u"FColType", 2}, {u"FKeyWord", u"QTY"}},
         Area::wide,
         List::none,
         CellType::decimal,
         3},
        {"price",
         comparison(u"=", u"0"),
         {{u"FColType", 2}, {u"FKeyWord", u"PRICE"}},
         Area::wide,
         List::none,
         CellType::decimal,
         2},
        {"amount",
         comparison(u"=", u"0"),
         {{u"FColType", -5}, {u"FKeyWord", u"AMOUNT"}},
         Area::wide,
         List::none,
         CellType::decimal,
         4},
        {"discount by its scale",
         comparison(u"=", u"0"),
         {{u"FColType", 2}, {u"FKeyWord", u"DISCOUNTRATE"}, {u"FSCale", 6}},
         Area::wide,
         List::none,
         CellType::decimal,
         6},
        {"discount without places",
         comparison(u"=", u"0"),
         {{u"FColType", 2}, {u"FKeyWord", u"DISCOUNTRATE"}},
         Area::wide,
         List::none,
         CellType::wholeNumber},
        {"number of no kind",
         comparison(u"=", u"0"),
         {{u"FColType", 8}},
         Area::wide,
         List::none,
         CellType::decimal,
         10},
        {"raw type", comparison(u"=", u"0"), {{u"FColType", 501}}},
        {"days before today",
         comparison(u" BETWEEN ", u"0", u"", u"TODAYBEFORE"),
         {{u"FColType", 0}},
         Area::wide,
         List::none,
         CellType::wholeNumber},
        {"days after today, in small letters",
         comparison(u" BETWEEN ", u"0", u"", u"todayafter"),
         {{u"FColType", 0}},
         Area::wide,
         List::none,
         CellType::wholeNumber},
        {"keyword without input", comparison(u"=", u"", u"", u"ISNULL", false), {{u"FColType", 0}}},
        {"look-up", comparison(u"=", u"1", u"现金;1"), {{u"FColType", 2}}, Area::wide, List::items},
        {"list input with a source", comparison(u"=", u"2", u"现金;1"), {{u"FColType", 1}}, Area::wide, List::captions},
        {"list input without one", comparison(u"=", u"2"), {{u"FColType", 2}}},
        {"list of several values", comparison(u"IN", u"2", u"现金;1"), {{u"FColType", 1}}},
    };
    for (const ShapeCase& c : cases) {
        SCOPED_TRACE(c.name);
        const metadata::FieldRecord field(tests::record(c.field));
        const ValueCellShape shape = shapeValueCell(c.entry, field, {3, 2, 4});
        EXPECT_EQ(shape.area, c.area);
        EXPECT_EQ(shape.list, c.list);
        EXPECT_EQ(shape.format.type, c.type);
        EXPECT_EQ(shape.format.decimals, c.decimals);
        EXPECT_EQ(shape.format.maxLength, c.maxLength);
        EXPECT_EQ(shape.format.earliestDate, c.type == CellType::date ? u"01011900" : u"");
    }
    const metadata::FieldRecord date(tests::record({{u"FColType", 0}}));
    EXPECT_EQ(shapeValueCell(comparison(u"", u"0", u"", u"TODAYAFTER"), date, {}).format.maximum, 366);
}

} // namespace
} // namespace orv::editor
