#include "conditions/GridRows.h"
#include "Samples.h"

namespace orv::conditions {
namespace {

using namespace sample;
using ui::CellType;
using ui::Spread;

void setType(Spread& grid, int column, int line, CellType type) {
    ui::CellFormat format = grid.format(column, line);
    format.type = type;
    grid.setFormat(column, line, format);
}

/// A grid of eight columns with a logic list in every line.
void layOut(Spread& grid, int lines) {
    grid.setMaxRows(lines);
    grid.setMaxCols(8);
    for (int line = 1; line <= lines; ++line) {
        setType(grid, gridColumn::logic, line, CellType::comboBox);
        grid.setComboList(gridColumn::logic, line, u"并且\t或");
    }
}

TEST(GridRows, ALineIsUsedAsSoonAsACellHoldsText) {
    Spread grid(u"vsFilter");
    layOut(grid, 2);
    EXPECT_FALSE(IsFilterRowUsed(grid, 1));
    for (int column = 1; column <= 8; ++column) {
        grid.setText(column, 1, column == gridColumn::logic ? u"或" : u" ");
        EXPECT_TRUE(IsFilterRowUsed(grid, 1)) << "column " << column;
        EXPECT_FALSE(IsFilterRowUsed(grid, 2)) << "column " << column;
        grid.setText(column, 1, u"");
    }
    grid.setText(0, 1, u"1"); // the row heading
    EXPECT_FALSE(IsFilterRowUsed(grid, 1));
}

TEST(GridRows, ReadValuesByTheKindOfTheCell) {
    struct CellCase {
        CellType type;
        const char16_t* text;
        CellType timeType;
        const char16_t* time;
        const char* value;
    };
    const CellCase cases[] = {
        {CellType::edit, u" a ", CellType::edit, u"130509", " a "},
        {CellType::edit, u"02052024", CellType::edit, u"", "02052024"},
        {CellType::decimal, u"12.50", CellType::edit, u"", "12.5"},
        {CellType::decimal, u"1,234.00", CellType::edit, u"", "1234"},
        {CellType::wholeNumber, u"007", CellType::edit, u"", "7"},
        {CellType::wholeNumber, u"", CellType::edit, u"", ""},
        {CellType::date, u"02052024", CellType::edit, u"130509", "2024-02-05"},
        {CellType::date, u"", CellType::edit, u"", ""},
        {CellType::date, u"02052024", CellType::time, u"130509", "2024-02-05 13:05:09"},
        {CellType::date, u"02052024", CellType::time, u"", "2024-02-05 00:00:00"},
        {CellType::date, u"", CellType::time, u"130509", ""},
        {CellType::date, u"2024", CellType::time, u"13", "2024 13"},
    };
    for (const CellCase& c : cases) {
        Spread grid(u"vsFilter");
        layOut(grid, 1);
        setType(grid, gridColumn::value, 1, c.type);
        setType(grid, gridColumn::valueTime, 1, c.timeType);
        grid.setText(gridColumn::value, 1, c.text);
        grid.setText(gridColumn::valueTime, 1, c.time);
        std::vector<ConditionRow> rows{NewConditionRow()};
        rows[0].FValueIndex = 7;
        readRows(grid, rows);
        EXPECT_EQ(toUtf8(rows[0].FValue), c.value) << "cell text " << toUtf8(c.text) << " / " << toUtf8(c.time);
        EXPECT_FALSE(rows[0].FValueIndex) << "only a list has an index";
    }
}

TEST(GridRows, ReadAListAsItsWholeItemAndPosition) {
    Spread grid(u"vsFilter");
    layOut(grid, 1);
    setType(grid, gridColumn::value, 1, CellType::comboBox);
    const std::u16string blanks(253, u' ');
    grid.setComboList(gridColumn::value, 1, u"红色" + blanks + u"1\t绿色" + blanks + u"2");
    std::vector<ConditionRow> rows{NewConditionRow()};
    grid.setComboSelection(gridColumn::value, 1, 1);
    readRows(grid, rows);
    EXPECT_EQ(toUtf8(rows[0].FValue), toUtf8(u"绿色" + blanks + u"2"));
    EXPECT_EQ(rows[0].FValueIndex, 1);
    grid.setComboSelection(gridColumn::value, 1, -1);
    readRows(grid, rows);
    EXPECT_EQ(rows[0].FValueIndex, -1);
}

TEST(GridRows, ReadBracketsAndLogicOfEveryLineButTheLastOnesLogic) {
    Spread grid(u"vsFilter");
    layOut(grid, 4);
    const int selections[] = {0, 1, -1, 0};
    std::vector<ConditionRow> rows(4);
    rows[3].FLogic = u"before";
    for (int line = 1; line <= 4; ++line) {
        grid.setText(gridColumn::left, line, u"((");
        grid.setText(gridColumn::right, line, u" )");
        grid.setComboSelection(gridColumn::logic, line, selections[line - 1]);
    }
    readRows(grid, rows);
    const char16_t* words[] = {u" AND ", u" OR ", u" OR ", u"before"};
    for (std::size_t i = 0; i < 4; ++i) {
        SCOPED_TRACE(testing::Message() << "line " << i + 1);
        EXPECT_EQ(toUtf8(rows[i].FLeft), "((");
        EXPECT_EQ(toUtf8(rows[i].FRight), " )");
        EXPECT_EQ(toUtf8(rows[i].FLogic), toUtf8(words[i]));
        EXPECT_EQ(rows[i].FLogicIndex, i < 3 ? std::optional<std::int32_t>(selections[i]) : std::nullopt);
    }
}

TEST(GridRows, MakeUpMissingRowsUpToTheLastUsedLine) {
    Spread grid(u"vsFilter");
    layOut(grid, 30);
    std::vector<ConditionRow> rows;
    readRows(grid, rows);
    EXPECT_TRUE(rows.empty());
    grid.setText(gridColumn::left, 5, u"(");
    readRows(grid, rows);
    ASSERT_EQ(rows.size(), 5U);
    EXPECT_EQ(toUtf8(rows[4].FLeft), "(");
    rows.resize(40); // more rows than lines
    readRows(grid, rows);
    EXPECT_EQ(rows.size(), 40U);
}

TEST(ConditionRow, IsNewWithNothingChosen) {
    const ConditionRow blank = NewConditionRow();
    for (const std::u16string* text : {&blank.FLeft, &blank.FFieldKey, &blank.FFieldName, &blank.FCompare,
                                       &blank.FValue, &blank.FLogic, &blank.FRight})
        EXPECT_EQ(toUtf8(*text), "");
    EXPECT_FALSE(blank.FCompareIndex || blank.FValueIndex || blank.FLogicIndex || blank.FColType);
    EXPECT_FALSE(blank.FCompareDct || blank.HDict);
}

TEST(CompareEntry, ReadsWhatTheHostGives) {
    const automation::Dictionary entry = automation::makeDictionary();
    CompareEntry read = CompareEntry::read(entry);
    EXPECT_EQ(toUtf8(read.FOperate + read.FInputCtlType + read.FDataSource), "");
    EXPECT_FALSE(read.FInput);

    entry.set(u"FName", u"等于");
    entry.set(u"FOperate", u" = ");
    entry.set(u"FValue", automation::Null());
    entry.set(u"FInput", -1);
    entry.set(u"FInputCtlType", 2);
    entry.set(u"FDataFieldIndex", 2.0);
    entry.set(u"FDataSourceType", u"x");
    entry.set(u"FDataSource", u"select 1");
    read = CompareEntry::read(entry);
    EXPECT_EQ(toUtf8(read.FName + u"|" + read.FOperate + u"|" + read.FValue + u"|" + read.FInputCtlType + u"|" +
                     read.FDataFieldIndex + u"|" + read.FDataSource),
              "等于| = ||2|2|select 1");
    EXPECT_TRUE(read.FInput);
    EXPECT_EQ(read.FDataSourceType, automation::Value(u"x"));

    entry.set(u"FInput", u"perhaps");
    EXPECT_EQ(outcome([&] { return CompareEntry::read(entry).FName; }), "error 13: 类型不匹配");
}

} // namespace
} // namespace orv::conditions
