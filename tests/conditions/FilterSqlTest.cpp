#include "conditions/FilterSql.h"
#include "Samples.h"
#include "conditions/GridRows.h"
#include "support/PaddedItem.h"

namespace orv::conditions {
namespace {

using namespace sample;

enum Logic { none = -1, andNext = 0, orNext = 1 };

/// The parts of the control that the filter text is made of, with one text condition a line.
class FilterSql : public testing::Test {
  protected:
    explicit FilterSql(int lines = 4) {
        grid.setMaxRows(lines);
        grid.setMaxCols(8);
        rows.reserve(1000); // addLine hands out references
    }

    /// A line "field = 'value'"; further parts of its row can be changed through what it returns.
    ConditionRow& addLine(const char16_t* left, const char16_t* value, const char16_t* right, Logic logic) {
        const int line = static_cast<int>(rows.size()) + 1;
        grid.setText(gridColumn::left, line, left);
        grid.setText(gridColumn::field, line, u"客户");
        grid.setText(gridColumn::value, line, value);
        grid.setText(gridColumn::right, line, right);
        ui::CellFormat combo;
        combo.type = ui::CellType::comboBox;
        grid.setFormat(gridColumn::logic, line, combo);
        grid.setComboList(gridColumn::logic, line, u"并且\t或");
        grid.setComboSelection(gridColumn::logic, line, logic);
        rows.push_back(row(1, typed("=", "0"), ""));
        rows.back().HDict = field("客户", "F");
        return rows.back();
    }

    void addPanel(const char16_t* tag, const std::u16string& item, bool visible = true) {
        ui::Label& label = lblFilter.load();
        label.setTag(tag);
        label.setVisible(visible);
        ui::ComboBox& box = cmbFilter.load();
        box.addItem(item);
        box.setListIndex(0);
    }

    /// The filter text that `start` becomes, or the error.
    std::string filter(const char16_t* start = u"") {
        strFilter = start;
        return outcome([this] {
            appendFilterSql({grid, lblFilter, cmbFilter, classType, choice}, rows, source, context, strFilter);
            return strFilter;
        });
    }

    ui::Spread grid{u"vsFilter"};
    ui::ControlArray<ui::Label> lblFilter{u"lblFilter", 1};
    ui::ControlArray<ui::ComboBox> cmbFilter{u"cmbFilter", 1};
    std::u16string classType;
    QuickFilterChoice choice;
    std::vector<ConditionRow> rows;
    FakeSource source;
    std::u16string context = u"from before";
    std::u16string strFilter;
};

std::u16string panelItem(std::u16string_view condition) {
    return support::PadItem(u"未结清", condition);
}

TEST_F(FilterSql, DoesNothingWithoutAFieldInTheFirstLine) {
    classType = u"收款单据";
    choice.check = 0;
    grid.setText(gridColumn::left, 1, u")");
    grid.setText(gridColumn::field, 2, u"客户");
    EXPECT_EQ(filter(u"x AND\r\n"), "x AND\r\n");
    EXPECT_EQ(toUtf8(context), "");
    grid.setMaxRows(0);
    EXPECT_EQ(filter(u"x"), "x");
}

TEST_F(FilterSql, CutsTheLogicWordOfTheLastCondition) {
    struct LogicCase {
        Logic last;
        const char* expected;
    };
    for (const LogicCase& c :
         {LogicCase{andNext, " ( F= 'a'   ) "}, LogicCase{orNext, " ( F= 'a'  ) "}, LogicCase{none, " ( F= 'a'  ) "}}) {
        rows.clear();
        addLine(u"", u"a", u"", c.last);
        EXPECT_EQ(filter(), c.expected) << "logic item " << c.last;
    }
}

TEST_F(FilterSql, JoinsLinesByTheirOwnLogicWords) {
    addLine(u"((", u"a", u"", andNext);
    addLine(u"", u"b", u")", orNext);
    addLine(u" ", u"c", u") ", none);
    EXPECT_EQ(filter(), " ((( F= 'a'   AND\r\n"
                        " F= 'b'  ) OR\r\n"
                        "  F= 'c'  ) ) ");
    EXPECT_EQ(toUtf8(context), "行：3; 字段：客户 ");
}

TEST_F(FilterSql, SkipsBlankLinesAndKeepsTheLastGridLinesBreak) {
    addLine(u"", u"a", u"", andNext);
    grid.setMaxRows(3);
    rows.resize(2);
    addLine(u"", u"b", u"", andNext).FLogic = u"";
    EXPECT_EQ(filter(), " ( F= 'a'   AND\r\n F= 'b'   \r\n) ");
    rows[2].FLogic = u" OR ";
    EXPECT_EQ(filter(), " ( F= 'a'   AND\r\n F= 'b'  ) ");
}

TEST_F(FilterSql, ExtendsWhatTheCallerPassesIn) {
    addLine(u"", u"a", u"", orNext);
    EXPECT_EQ(filter(u"t.FID>0 AND "), " (t.FID>0 AND  F= 'a'  ) ");
    EXPECT_EQ(filter(u"t.FID>0 OR\r\n"), " (t.FID>0 OR\r\n F= 'a'  ) ");
}

TEST_F(FilterSql, CountsBracketsOnly) {
    const char* unbalanced = "error 5: 左括号与右括号不匹配, 请重新设置. ";
    struct BracketCase {
        const char16_t* left[2];
        const char16_t* right[2];
        bool balanced;
    };
    const BracketCase cases[] = {
        {{u"", u"("}, {u")", u""}, false},    // balanced in total, negative after the first line
        {{u"((", u""}, {u"", u")"}, false},   // one left open
        {{u"", u""}, {u"", u")"}, false},     // one closed too often
        {{u"((", u""}, {u")", u")"}, true},   //
        {{u" ( ", u""}, {u"", u"  )"}, true}, // blanks around do not count
        {{u"[", u""}, {u"", u"x"}, true},     // nor does the kind
        {{u"( (", u""}, {u")", u")"}, false}, // a blank between does
    };
    for (const BracketCase& c : cases) {
        rows.clear();
        addLine(c.left[0], u"a", c.right[0], andNext);
        addLine(c.left[1], u"b", c.right[1], none);
        const std::string sql = filter(u"start");
        EXPECT_EQ(sql != unbalanced, c.balanced) << toUtf8(c.left[0]) << " " << toUtf8(c.right[0]) << " / "
                                                 << toUtf8(c.left[1]) << " " << toUtf8(c.right[1]) << ": " << sql;
        EXPECT_EQ(context.empty(), !c.balanced) << "a bracket error carries no line";
        EXPECT_EQ(strFilter == u"start", !c.balanced);
    }
}

TEST_F(FilterSql, NamesTheLineThatFails) {
    const char* notNumeric = "error 5: 无效的输入值,请输入数字";
    addLine(u"", u"a", u"", andNext);
    ConditionRow& second = addLine(u"", u"b", u"", andNext);
    ConditionRow& bad = addLine(u"", u"x", u"", none);
    bad.FColType = 2;
    bad.HDict = field("日期", "F");
    EXPECT_EQ(filter(), notNumeric);
    EXPECT_EQ(toUtf8(context), "行：3; 字段：日期 ");
    EXPECT_EQ(toUtf8(strFilter), " F= 'a'   AND\r\n F= 'b'   AND\r\n") << "what was finished before stays";
    const auto shown = withContext({7, u"host", u"无效"}, context);
    EXPECT_EQ(std::string(shown.what()), "error 7: 行：3; 字段：日期 无效");
    EXPECT_EQ(toUtf8(shown.source()), "host");

    second.FCompareIndex.reset();
    EXPECT_EQ(filter(), "error 5: 请选择比较关系");
    EXPECT_EQ(toUtf8(context), "行：2; 字段：客户 ");
    second.FCompareIndex = 1;
    second.FCompareDct.reset();
    EXPECT_EQ(filter(), "error 5: 请选择比较关系");
    second.FFieldKey.clear();
    EXPECT_EQ(filter(), "error 5: 请选择过滤字段");
    EXPECT_EQ(toUtf8(context), "行：2; 字段： ");
    rows.resize(1); // lines whose rows do not exist yet
    EXPECT_EQ(filter(), "error 5: 请选择过滤字段");
    EXPECT_EQ(toUtf8(context), "行：2; 字段： ");
}

TEST_F(FilterSql, AsksForTodayOnceAndOnlyWhenItIsNeeded) {
    addLine(u"", u"", u"", andNext);
    EXPECT_EQ(filter(), " ( F= ''   ) ");
    EXPECT_EQ(source.timesAskedToday, 0);

    source.today = "2024-02-29";
    source.isTypeList = false;
    classType = u"组装拆卸单";
    choice.time = 0;
    for (int i = 0; i < 2; ++i)
        addLine(u"", u"", u"", none).FCompareDct = std::make_shared<CompareEntry>(keyword(" BETWEEN ", "TODAY"));
    EXPECT_EQ(filter(), " ( F= ''   AND\r\n"
                        " F BETWEEN  '2024-02-29' AND '2024-02-29 23:59:59'   OR\r\n"
                        " F BETWEEN  '2024-02-29' AND '2024-02-29 23:59:59'  )  And "
                        "(( convert(datetime,convert(varchar(30),ICChange.FDate,111))='2024/02/29'))");
    EXPECT_EQ(source.timesAskedToday, 1);
}

TEST_F(FilterSql, SurvivesAHostThatDropsTheRows) {
    addLine(u"", u"", u"", andNext).FCompareDct = std::make_shared<CompareEntry>(keyword(" BETWEEN ", "TODAY"));
    source.today = "2024-02-29";
    source.whileAsked = [this] { rows.clear(); };
    EXPECT_EQ(filter(), "error 5: 请选择过滤字段");
}

TEST_F(FilterSql, PassesOnWhatTheHostRaises) {
    addLine(u"", u"a", u"", andNext);
    classType = u"收款单据";
    EXPECT_EQ(filter(), "error 4711: TypeList");
    EXPECT_EQ(toUtf8(context), "行：1; 字段：客户 ") << "the last line's context stays";
}

TEST_F(FilterSql, FillsPanelTemplates) {
    source.fields = {{3, field("金额", "t.FAmount")}, {12, field("备注", "isnull(t.@Field,'')")}};
    addLine(u"", u"a", u"", andNext);
    addPanel(u"3", panelItem(u" @Field>0 and @FIELD<@field*2 "));
    addPanel(u"3", panelItem(u"none"));
    addPanel(u"", panelItem(u"  "));
    addPanel(u"3", panelItem(u"@Field=1"), false);
    addPanel(u"12", panelItem(u"@Fields<>''"));
    addPanel(u"3", u"");
    EXPECT_EQ(filter(), " ( F= 'a'   )  And (t.FAmount>0 and t.FAmount<t.FAmount*2 AND isnull(t.@Field,'')s<>'')");
}

TEST_F(FilterSql, RefusesPanelFieldsThatDoNotExist) {
    struct TagCase {
        const char16_t* tag;
        const char* expected;
    };
    addLine(u"", u"a", u"", andNext);
    for (const TagCase& c : {TagCase{u"4", "error 9: 下标越界"}, TagCase{u"x", "error 13: 类型不匹配"}}) {
        lblFilter.resize(0);
        cmbFilter.resize(0);
        addPanel(c.tag, panelItem(u"@Field>0"));
        EXPECT_EQ(filter(), c.expected);
    }
}

TEST_F(FilterSql, JoinsPanelAndQuickFilters) {
    source.fields = {{1, field("金额", "t.FAmount")}};
    source.isTypeList = true;
    addLine(u"", u"a", u"", andNext);
    classType = u" 收款单据 ";
    choice = {9, 9, 0};
    EXPECT_EQ(filter(), " ( F= 'a'   )  And (t_RP_RBill.FVoucherId>0 )");
    addPanel(u"1", panelItem(u"@Field>0"));
    EXPECT_EQ(filter(), " ( F= 'a'   )  And (t.FAmount>0 and t_RP_RBill.FVoucherId>0 )");
}

TEST_F(FilterSql, TakesManyLines) {
    constexpr int lines = 1000;
    grid.setMaxRows(lines);
    for (int i = 0; i < lines; ++i)
        addLine(u"(", u"a", u")", andNext);
    rows.back().FLogic = u"";
    std::u16string expected = u" (";
    for (int i = 1; i < lines; ++i)
        expected += u"( F= 'a'  ) AND\r\n";
    EXPECT_EQ(filter(), toUtf8(expected + u"( F= 'a'  ) \r\n) "));
}

} // namespace
} // namespace orv::conditions
