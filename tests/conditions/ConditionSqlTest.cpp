#include "conditions/ConditionSql.h"
#include "Samples.h"
#include "conditions/ConditionValue.h"
#include "support/PaddedItem.h"

#include <vector>

namespace orv::conditions {
namespace {

using namespace sample;

constexpr const char* wantsNumber = "error 5: 无效的输入值,请输入数字";
constexpr const char* notDate = "error 5: 无效的输入值,请输入日期,格式如:1999/12/25或1999-12-25";
constexpr const char* boundNotDate = "error 5: 无效的输入值,请输入正确的日期格式,如:1999/12/25或1999-12-25";
constexpr const char* boundsMissing = "error 5: 无效的输入值,请输入两个比较值,中间用'AND'隔开";
constexpr const char* boundsReversed = "error 5: 无效的输入值,初始值大于结束值";
constexpr const char* noBetween = "error 5: 模版不正确,系统不支持该种数据类型的'Between'语法";
constexpr const char* noLike = "error 5: 模版不正确，系统不支持该种数据类型的'Like'语法";
constexpr const char* noPiece = "error 5: 无效的过程调用或参数";

// Type codes that are treated alike.
const std::vector<int> dateTypes{0};
const std::vector<int> numberTypes{-501, -1, 2, 4, 6, 9, 10};
const std::vector<int> checkedOnlyTypes{8}; // checked as a number, guarded as a text
const std::vector<int> rawTypes{501};       // guarded as a number, not checked
const std::vector<int> textTypes{1, 3, 5, 7, 11, 499, 500, 502};
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
        {numberTypes, "=", "  7.50 ", "( isnull(F,0)= 7.5 ) AND"},
        {numberTypes, "<>", "-3", "( isnull(F,0)<> -3 ) AND"},
        {numberTypes, " >= ", "1e3", "( isnull(F,0) >=  1000 ) AND"},
        {numberTypes, "<=", "1,234.5", "( isnull(F,0)<= 1 ) AND"}, // recognised with its grouping, read up to it
        {numberTypes, "=", "abc", wantsNumber},
        {numberTypes, "!=", "", wantsNumber},
        {numberTypes, " IN ", "1,2", "( isnull(F,0) IN  0 ) AND"}, // a list begins with no number
        {numberTypes, " BETWEEN ", "3 AND 5", "( isnull(F,0) BETWEEN  3 ) AND"},
        {checkedOnlyTypes, "=", " 7.50 ", "( F= 7.50  ) AND"},
        {checkedOnlyTypes, "<>", "5", "( isnull(F,'')<> 5  ) AND"},
        {checkedOnlyTypes, ">", "x", wantsNumber},
        {checkedOnlyTypes, " IN ", "1, 2,,3", "( F IN  (1,2)  ) AND"},
        {checkedOnlyTypes, " Not In ", " 1 , -2.50 ", "( F Not In  (1,-2.50)  ) AND"},
        {checkedOnlyTypes, " BETWEEN ", "3 and 5", "( F BETWEEN  3 AND 5  ) AND"},
        {checkedOnlyTypes, " BETWEEN ", "3And3", "( F BETWEEN  3 AND 3  ) AND"},
        {anyNumber, " IN ", "1,x", wantsNumber},
        {anyNumber, " IN ", "", noPiece},
        {anyNumber, " NOT IN ", " ,1", noPiece},
        {anyNumber, " BETWEEN ", "5 and 3", boundsReversed},
        {anyNumber, " BETWEEN ", "3 AND ", wantsNumber},
        {anyNumber, " BETWEEN ", "AND 3", wantsNumber},
        {anyButText, " BETWEEN ", "3", boundsMissing},
        {anyButText, " LIKE ", "1", noLike},
        {anyButText, "NOT LIKE", "1", noLike},

        // 501: scalars pass unchecked; lists are quoted; the number in front is all that stays.
        {rawTypes, "=", "007", "( isnull(F,0)= 7 ) AND"},
        {rawTypes, "<>", "abc", "( isnull(F,0)<> 0 ) AND"},
        {rawTypes, " IN ", "1,2", "( isnull(F,0) IN  0 ) AND"},
        {rawTypes, " IN ", " ", noPiece},
        {rawTypes, " BETWEEN ", "1 AND 2", noBetween},
        {rawTypes, " LIKE ", "12", "( isnull(F,0) LIKE  0 ) AND"},

        // Texts: quoted, never escaped.
        {textTypes, "=", " O'Brien ", "( F= 'O'Brien'  ) AND"},
        {textTypes, "!=", "", "( F!= ''  ) AND"},
        {textTypes, " <> ", "物料", "( isnull(F,'') <>  '物料'  ) AND"},
        {textTypes, "<", "b", "( F< 'b'  ) AND"},
        {textTypes, ">", "b", "( F> 'b'  ) AND"},
        {textTypes, " IN ", "a, b c ,,d", "( F IN  ('a','b c')  ) AND"},
        {textTypes, " not in ", "a,", "( F not in  ('a')  ) AND"},
        {textTypes, " IN ", ",", noPiece},
        {textTypes, " BETWEEN ", "no separator", noBetween},
        {textTypes, " LIKE ", " a%b ", "( F LIKE  '%a%b%'  ) AND"},
        {textTypes, " Not Like ", "", "( F Not Like  '%%'  ) AND"},
        {textTypes, " IS ", "x", "( F IS    ) AND"},

        // Dates: compared as ten characters, the time of day cut.
        {dateTypes, "=", "2024/2/5", "( convert(char(10),F,120)=  '2024-02-05'   ) AND"},
        {dateTypes, "<>", "1999-12-25", "( isnull(convert(char(10),F,120),'')<>  '1999-12-25'   ) AND"},
        {dateTypes, " >= ", "2024-02-29 23:59:59", "( convert(char(10),F,120) >=   '2024-02-29'   ) AND"},
        {dateTypes, "=", "   ", "( convert(char(10),F,120)=  ''   ) AND"},
        {dateTypes, "=", "2023-02-29", notDate},
        {dateTypes, "<", "5", notDate},
        {dateTypes, " IN ", "2024/2/5 , 1999-12-25,",
         "( convert(char(10),F,120) IN  ('2024-02-05','1999-12-25')  ) AND"},
        {dateTypes, " NOT IN ", "2024/2/5,x", notDate},
        {dateTypes, " IN ", "", noPiece},
        {dateTypes, " BETWEEN ", "2024/2/1 And 2024-2-29",
         "( convert(char(10),F,120) BETWEEN  '2024-02-01' AND '2024-02-29'  ) AND"},
        {dateTypes, " BETWEEN ", "2024-2-5 12:00 AND 2024-2-5 13:00",
         "( convert(char(10),F,120) BETWEEN  '2024-02-05' AND '2024-02-05'  ) AND"},
        {dateTypes, " BETWEEN ", "2024-2-5 AND 2024/02/05",
         "( convert(char(10),F,120) BETWEEN  '2024-02-05' AND '2024-02-05'  ) AND"},
        {dateTypes, " BETWEEN ", "2024-2-5 13:00 AND 2024-2-5 12:00", boundsReversed},
        {dateTypes, " BETWEEN ", "2024-2-5 AND x", boundNotDate},
        {dateTypes, " BETWEEN ", "13 AND 2024-2-5", boundNotDate},
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
        {rawTypes, "=", " a b ", "( F=  a b   ) AND"},
        {rawTypes, " NOT IN ", "1, 2", "( F NOT IN  ('1','2')  ) AND"},
        {textTypes, "=", " x ", "( F= ' x '  ) AND"},
        {textTypes, " LIKE ", " x ", "( F LIKE  '% x %'  ) AND"},
        {dateTypes, "=", "", "( convert(char(10),F,120)=  ''   ) AND"},
        {dateTypes, "=", "  ", notDate}, // blanks are a value here, and no date
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
        {textTypes, "=", "2", "( F= '012.50'  ) AND"},
        {textTypes, "=", " 2 ", "( F= '012.50'  ) AND"},
        {textTypes, "=", "1", "( F= '20 只'  ) AND"},
        {textTypes, " LIKE ", "", "( F LIKE  '20 只'  ) AND"},
        {textTypes, " <> ", "2", "( isnull(isnull(F,''),'') <>  '012.50'  ) AND"},
        {checkedOnlyTypes, "=", "2", "( F= '012.50'  ) AND"},
        {numberTypes, "=", "2", "( F= 12.5 ) AND"},
        {numberTypes, "<>", "x", "( isnull(F,'')<> 20 ) AND"},
        {rawTypes, "=", "2", "( F= 12.5 ) AND"},
        {dateTypes, "=", "2", "( convert(char(10),F,120)= '012.50'  ) AND"},
        {dateTypes, "<>", "2", "( isnull(isnull(convert(char(10),F,120),''),'')<> '012.50'  ) AND"},
    };
    const std::string cell = toUtf8(support::PadItem(u" 20 只 ", u" 012.50 "));
    for (const LookUpCase& c : cases)
        expectSql({c.types, c.op, cell.c_str(), c.expected}, typed(c.op, "1", c.dataFieldIndex));

    expectSql({textTypes, "<>", "...任意", "(  1<>1  ) AND"}, typed("<>", "1", "2"));
    expectSql({dateTypes, "<>", "...", "(  1<>1  ) AND"}, typed("<>", "1"));
    expectSql({textTypes, "<>", "..任意", "( isnull(isnull(F,''),'')<> '..任意'  ) AND"}, typed("<>", "1"));
    expectSql({textTypes, "<>", " ...", "( isnull(isnull(F,''),'')<> '...'  ) AND"}, typed("<>", "1"));
    expectSql({textTypes, "=", "...", "( F= '...'  ) AND"}, typed("=", "1"));
    expectSql({numberTypes, "<>", "...", "( isnull(F,'')<> 0 ) AND"}, typed("<>", "1"));
    expectSql({textTypes, "=", "", "( F= ''  ) AND"}, typed("=", "1", "2"));
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
        {automation::Value(u"2"), wantsNumber},
        {automation::Value(1), wantsNumber},
        {automation::Value(), wantsNumber},
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
    EXPECT_EQ(formatted("TODAYAFTER", u"2024-2-5"), wantsNumber);
    EXPECT_EQ(formatted("TODAYAFTER", u""), wantsNumber);
    EXPECT_EQ(formatted("TODAY", u"5"), notDate);
}

} // namespace
} // namespace orv::conditions
