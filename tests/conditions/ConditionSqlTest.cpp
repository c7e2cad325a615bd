#include "conditions/ConditionSql.h"
#include "Samples.h"
#include "conditions/ConditionValue.h"
#include "support/PaddedItem.h"

#include <vector>

namespace orv::conditions {
namespace {

using namespace sample;

constexpr const char* notNumeric = "error 5: 无效的输入值,请输入数字";
constexpr const char* notDate = "error 5: 无效的输入值,请输入日期,格式如:1999/12/25或1999-12-25";
constexpr const char* boundNotDate = "error 5: 无效的输入值,请输入正确的日期格式,如:1999/12/25或1999-12-25";
constexpr const char* boundsMissing = "error 5: 无效的输入值,请输入两个比较值,中间用'AND'隔开";
constexpr const char* boundsReversed = "error 5: 无效的输入值,初始值大于结束值";
constexpr const char* noBetween = "error 5: 模版不正确,系统不支持该种数据类型的'Between'语法";
constexpr const char* noLike = "error 5: 模版不正确，系统不支持该种数据类型的'Like'语法";
constexpr const char* noPiece = "error 5: 无效的过程调用或参数";

// Type codes that are treated alike.
const std::vector<int> date{0};
const std::vector<int> number{-501, -1, 2, 4, 6, 9, 10};
const std::vector<int> checkedOnly{8}; // checked as a number, guarded as a text
const std::vector<int> raw{501};       // guarded as a number, not checked
const std::vector<int> text{1, 3, 5, 7, 11, 499, 500, 502};
const std::vector<int> anyNumber{-501, -1, 2, 4, 6, 8, 9, 10};
const std::vector<int> anyButText{-501, -1, 0, 2, 4, 6, 8, 9, 10};

struct TypedCase {
    const std::vector<int>& types;
    const char* op;
    const char* value;
    const char* expected;
};

void expectSql(const TypedCase& c, const CompareEntry& entry) {
    FakeSource noHost;
    for (const int type : c.types) {
        SCOPED_TRACE(testing::Message() << "type " << type << ", operator \"" << c.op << "\", value \"" << c.value
                                        << "\"");
        EXPECT_EQ(outcome([&] { return BuildConditionSql(row(type, entry, c.value), noHost); }), c.expected);
    }
}

TEST(ConditionSql, WritesTypedValues) {
    const TypedCase cases[] = {
        // Numbers: guarded against Null, the value as a plain number.
        {number, "=", "  7.50 ", "( isnull(F,0)= 7.5 ) AND"},
        {number, "<>", "-3", "( isnull(F,0)<> -3 ) AND"},
        {number, " >= ", "1e3", "( isnull(F,0) >=  1000 ) AND"},
        {number, "<=", "1,234.5", "( isnull(F,0)<= 1 ) AND"}, // recognised with its grouping, read up to it
        {number, "=", "abc", notNumeric},
        {number, "!=", "", notNumeric},
        {number, " IN ", "1,2", "( isnull(F,0) IN  0 ) AND"}, // a list begins with no number
        {number, " BETWEEN ", "3 AND 5", "( isnull(F,0) BETWEEN  3 ) AND"},
        {checkedOnly, "=", " 7.50 ", "( F= 7.50  ) AND"},
        {checkedOnly, "<>", "5", "( isnull(F,'')<> 5  ) AND"},
        {checkedOnly, ">", "x", notNumeric},
        {checkedOnly, " IN ", "1, 2,,3", "( F IN  (1,2)  ) AND"},
        {checkedOnly, " Not In ", " 1 , -2.50 ", "( F Not In  (1,-2.50)  ) AND"},
        {checkedOnly, " BETWEEN ", "3 and 5", "( F BETWEEN  3 AND 5  ) AND"},
        {checkedOnly, " BETWEEN ", "3And3", "( F BETWEEN  3 AND 3  ) AND"},
        {anyNumber, " IN ", "1,x", notNumeric},
        {anyNumber, " IN ", "", noPiece},
        {anyNumber, " NOT IN ", " ,1", noPiece},
        {anyNumber, " BETWEEN ", "5 and 3", boundsReversed},
        {anyNumber, " BETWEEN ", "3 AND ", notNumeric},
        {anyNumber, " BETWEEN ", "AND 3", notNumeric},
        {anyButText, " BETWEEN ", "3", boundsMissing},
        {anyButText, " LIKE ", "1", noLike},
        {anyButText, "NOT LIKE", "1", noLike},

        // 501: scalars pass unchecked; lists are quoted; the number in front is all that stays.
        {raw, "=", "007", "( isnull(F,0)= 7 ) AND"},
        {raw, "<>", "abc", "( isnull(F,0)<> 0 ) AND"},
        {raw, " IN ", "1,2", "( isnull(F,0) IN  0 ) AND"},
        {raw, " IN ", " ", noPiece},
        {raw, " BETWEEN ", "1 AND 2", noBetween},
        {raw, " LIKE ", "12", "( isnull(F,0) LIKE  0 ) AND"},

        // Texts: quoted, never escaped.
        {text, "=", " O'Brien ", "( F= 'O'Brien'  ) AND"},
        {text, "!=", "", "( F!= ''  ) AND"},
        {text, " <> ", "物料", "( isnull(F,'') <>  '物料'  ) AND"},
        {text, "<", "b", "( F< 'b'  ) AND"},
        {text, ">", "b", "( F> 'b'  ) AND"},
        {text, " IN ", "a, b c ,,d", "( F IN  ('a','b c')  ) AND"},
        {text, " not in ", "a,", "( F not in  ('a')  ) AND"},
        {text, " IN ", ",", noPiece},
        {text, " BETWEEN ", "no separator", noBetween},
        {text, " LIKE ", " a%b ", "( F LIKE  '%a%b%'  ) AND"},
        {text, " Not Like ", "", "( F Not Like  '%%'  ) AND"},
        {text, " IS ", "x", "( F IS    ) AND"},

        // Dates: compared as ten characters, the time of day cut.
        {date, "=", "2024/2/5", "( convert(char(10),F,120)=  '2024-02-05'   ) AND"},
        {date, "<>", "1999-12-25", "( isnull(convert(char(10),F,120),'')<>  '1999-12-25'   ) AND"},
        {date, " >= ", "2024-02-29 23:59:59", "( convert(char(10),F,120) >=   '2024-02-29'   ) AND"},
        {date, "=", "   ", "( convert(char(10),F,120)=  ''   ) AND"},
        {date, "=", "2023-02-29", notDate},
        {date, "<", "5", notDate},
        {date, " IN ", "2024/2/5 , 1999-12-25,", "( convert(char(10),F,120) IN  ('2024-02-05','1999-12-25')  ) AND"},
        {date, " NOT IN ", "2024/2/5,x", notDate},
        {date, " IN ", "", noPiece},
        {date, " BETWEEN ", "2024/2/1 And 2024-2-29",
         "( convert(char(10),F,120) BETWEEN  '2024-02-01' AND '2024-02-29'  ) AND"},
        {date, " BETWEEN ", "2024-2-5 12:00 AND 2024-2-5 13:00",
         "( convert(char(10),F,120) BETWEEN  '2024-02-05' AND '2024-02-05'  ) AND"},
        {date, " BETWEEN ", "2024-2-5 AND 2024/02/05",
         "( convert(char(10),F,120) BETWEEN  '2024-02-05' AND '2024-02-05'  ) AND"},
        {date, " BETWEEN ", "2024-2-5 13:00 AND 2024-2-5 12:00", boundsReversed},
        {date, " BETWEEN ", "2024-2-5 AND x", boundNotDate},
        {date, " BETWEEN ", "13 AND 2024-2-5", boundNotDate},
    };
    for (const TypedCase& c : cases)
        expectSql(c, typed(c.op, "0"));
}

TEST(ConditionSql, WritesListValuesUntrimmedAndUnguarded) {
    const TypedCase cases[] = {
        {anyNumber, "=", " 7.50 ", "( F= 7.50  ) AND"},
        {anyNumber, "<>", "5", "( isnull(F,'')<> 5  ) AND"},
        {anyNumber, " IN ", "1, 2,,3", "( F IN  (1,2)  ) AND"},
        {anyNumber, " BETWEEN ", "3 AND 5", "( F BETWEEN  3 AND 5  ) AND"},
        {raw, "=", " a b ", "( F=  a b   ) AND"},
        {raw, " NOT IN ", "1, 2", "( F NOT IN  ('1','2')  ) AND"},
        {text, "=", " x ", "( F= ' x '  ) AND"},
        {text, " LIKE ", " x ", "( F LIKE  '% x %'  ) AND"},
        {date, "=", "", "( convert(char(10),F,120)=  ''   ) AND"},
        {date, "=", "  ", notDate}, // blanks are a value here, and no date
    };
    for (const TypedCase& c : cases)
        expectSql(c, typed(c.op, "2"));
}

TEST(ConditionSql, WritesOnePartOfALookUpCell) {
    struct LookUpCase {
        const std::vector<int>& types;
        const char* op;
        const char* dataFieldIndex;
        const char* expected;
    };
    const LookUpCase cases[] = {
        {text, "=", "2", "( F= '012.50'  ) AND"},
        {text, "=", " 2 ", "( F= '012.50'  ) AND"},
        {text, "=", "1", "( F= '20 只'  ) AND"},
        {text, " LIKE ", "", "( F LIKE  '20 只'  ) AND"},
        {text, " <> ", "2", "( isnull(isnull(F,''),'') <>  '012.50'  ) AND"},
        {checkedOnly, "=", "2", "( F= '012.50'  ) AND"},
        {number, "=", "2", "( F= 12.5 ) AND"},
        {number, "<>", "x", "( isnull(F,'')<> 20 ) AND"},
        {raw, "=", "2", "( F= 12.5 ) AND"},
        {date, "=", "2", "( convert(char(10),F,120)= '012.50'  ) AND"},
        {date, "<>", "2", "( isnull(isnull(convert(char(10),F,120),''),'')<> '012.50'  ) AND"},
    };
    const std::string cell = toUtf8(support::PadItem(u" 20 只 ", u" 012.50 "));
    for (const LookUpCase& c : cases)
        expectSql({c.types, c.op, cell.c_str(), c.expected}, typed(c.op, "1", c.dataFieldIndex));

    expectSql({text, "<>", "...任意", "(  1<>1  ) AND"}, typed("<>", "1", "2"));
    expectSql({date, "<>", "...", "(  1<>1  ) AND"}, typed("<>", "1"));
    expectSql({text, "<>", "..任意", "( isnull(isnull(F,''),'')<> '..任意'  ) AND"}, typed("<>", "1"));
    expectSql({text, "<>", " ...", "( isnull(isnull(F,''),'')<> '...'  ) AND"}, typed("<>", "1"));
    expectSql({text, "=", "...", "( F= '...'  ) AND"}, typed("=", "1"));
    expectSql({number, "<>", "...", "( isnull(F,'')<> 0 ) AND"}, typed("<>", "1"));
    expectSql({text, "=", "", "( F= ''  ) AND"}, typed("=", "1", "2"));
}

TEST(ConditionSql, LeavesOnlyBracketsOfAnUnknownInputType) {
    for (const char* ctl : {"3", "", " 0", "00"})
        expectSql({anyButText, "=", "abc", "(  ) AND"}, typed("=", ctl));
}

TEST(ConditionSql, KeepsBracketsAndTrimsTheLogicWord) {
    FakeSource noHost;
    ConditionRow plain = row(1, typed("=", "0"), "x");
    plain.FLeft = u" (( ";
    plain.FRight = u"";
    plain.FLogic = u"";
    EXPECT_EQ(toUtf8(BuildConditionSql(plain, noHost)), " ((  F= 'x'   ");
    EXPECT_EQ(outcome([&] { return BuildConditionSql(row(std::nullopt, typed("=", "0"), "2024-2-5"), noHost); }),
              "( convert(char(10),F,120)=  '2024-02-05'   ) AND");
}

TEST(ConditionSql, RefusesABrokenComparisonBeforeItsValue) {
    FakeSource noHost;
    struct KindCase {
        automation::Value kind;
        const char* expected;
    };
    const KindCase cases[] = {
        {automation::Value(u"abc"), "error 13: 类型不匹配"},
        {automation::Value(u"2"), notNumeric},
        {automation::Value(1), notNumeric},
        {automation::Value(), notNumeric},
    };
    for (const KindCase& c : cases) {
        CompareEntry entry = typed("=", "0");
        entry.FDataSourceType = c.kind;
        EXPECT_EQ(outcome([&] { return BuildConditionSql(row(2, entry, "x"), noHost); }), c.expected);
    }
    ConditionRow bare = row(2, typed("=", "0"), "1");
    bare.FCompareDct.reset();
    EXPECT_EQ(outcome([&] { return BuildConditionSql(bare, noHost); }), "error 5: 请选择比较关系");
}

TEST(ConditionSql, RaisesInTheNameOfTheControlAndLeavesTheTextAlone) {
    FakeSource noHost;
    std::u16string sql = u"kept";
    try {
        appendConditionSql(sql, row(0, typed(" BETWEEN ", "2"), "2024-2-5 AND x"), noHost);
        FAIL() << "a bound that is no date was accepted";
    } catch (const automation::AutomationError& error) {
        EXPECT_EQ(toUtf8(error.source()), toUtf8(automation::controlSource));
    }
    EXPECT_EQ(toUtf8(sql), "kept");
}

TEST(ConditionValue, IsADayCountForRangesAroundToday) {
    const auto formatted = [](const char* word, const char16_t* value) {
        const CompareEntry entry = keyword("=", word, true);
        return outcome([&] { return FormatConditionValue(value, row(0, entry, ""), entry); });
    };
    EXPECT_EQ(formatted("TODAYBEFORE", u" 5 "), " 5 ");
    EXPECT_EQ(formatted("todayafter", u"-2.5"), " -2.5 ");
    EXPECT_EQ(formatted("TODAYAFTER", u"2024-2-5"), notNumeric);
    EXPECT_EQ(formatted("TODAYAFTER", u""), notNumeric);
    EXPECT_EQ(formatted("TODAY", u"5"), notDate);
}

} // namespace
} // namespace orv::conditions
