#include "automation/Trace.h"

#include "ErrorOf.h"
#include "TraceFiles.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "automation/Text.h"
#include "automation/TracedFactory.h"

#include <gtest/gtest.h>

#include <regex>

namespace orv::automation::tests {
namespace {

using Lines = std::vector<TraceLine>;

/// A component: "Twice" writes to its argument, "Nested" calls itself, "Fail" fails.
class Component final : public Object {
  public:
    std::u16string_view typeName() const override { return u"Test.Component"; }
    Value invoke(std::u16string_view member, InvokeKind, Arguments arguments) override {
        if (member == u"Twice")
            arguments[0].assign(toText(arguments[0].value()) + toText(arguments[0].value()));
        else if (member == u"Nested")
            return call(shared_from_this(), u"Echo", u"inner");
        else if (member == u"Fail")
            throw AutomationError(5001, u"Test", u"no 'Meier' in\nrow 7");
        return member == u"Echo" ? arguments[0].value() : Value();
    }
};

class Components final : public ObjectFactory {
  public:
    ObjectRef create(std::u16string_view progId) override {
        if (progId != u"Test.Component")
            throw AutomationError::runtime(errorNumber::cannotCreateObject);
        return std::make_shared<Component>();
    }
    ObjectRef shared(std::u16string_view progId) override { return create(progId); }
};

class TraceTest : public testing::Test {
  protected:
    /// The entries that an action makes in a trace of its own.
    template <class Action>
    Lines traced(Action action, TraceMasking masking = TraceMasking::showsValues) {
        const std::u16string file = folder.file((u"of-" + numberToText(++files)).c_str());
        {
            const TraceScope scope(Trace::open(file, masking));
            action();
        }
        return entriesOf(file);
    }

    TraceFolder folder;
    int files = 0;
    ObjectRef component = std::make_shared<Component>();
};

TEST_F(TraceTest, CallsStandBelowThoseTheyMake) {
    const Lines lines = traced([&] { call(component, u"Nested"); });
    EXPECT_EQ(lines, (Lines{{1, "method", "Test.Component.Echo", "(\"inner\")", "\"inner\""},
                            {0, "method", "Test.Component.Nested", "()", "\"inner\""}}));
}

TEST_F(TraceTest, EveryKindOfCallReads) {
    const Dictionary record = makeDictionary();
    Value text(u"a\tb");
    const Lines lines = traced([&] {
        record.set(u"FKey", std::int32_t{7});
        record.get(u"FKey");
        call(component, u"Twice", Argument::byReference(text));
        EXPECT_EQ(errorOf([&] { call(component, u"Fail"); }), 5001);
        TracedFactory(*std::make_unique<Components>()).create(u"Test.Component");
        Components components;
        EXPECT_EQ(errorOf([&] { TracedFactory(components).shared(u"Test.Missing"); }), 429);
    });
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[0], (TraceLine{0, "let", "Dictionary.[default]", "(\"FKey\", 7)", "Empty"}));
    EXPECT_EQ(lines[1], (TraceLine{0, "get", "Dictionary.[default]", "(\"FKey\")", "7"}));
    EXPECT_EQ(lines[2], (TraceLine{0, "method", "Test.Component.Twice", "(\"a\\tb\")", "Empty left (\"a\\tba\\tb\")"}));
    EXPECT_EQ(lines[3], (TraceLine{0, "method", "Test.Component.Fail", "()",
                                   "error 5001 from \"Test\": \"no 'Meier' in\\nrow 7\""}));
    EXPECT_EQ(lines[4], (TraceLine{0, "create", "Test.Component", "", "done"}));
    EXPECT_EQ(lines[5].outcome.substr(0, 10), "error 429 ");
}

TEST_F(TraceTest, OnlyTheControlAtWorkIsTraced) {
    const auto trace = Trace::open(folder.file(u"one"), TraceMasking::showsValues);
    call(component, u"Echo", u"before");
    {
        const TraceScope working(trace);
        call(component, u"Echo", u"in");
        const TraceScope another(nullptr);
        call(component, u"Echo", u"another control");
    }
    call(component, u"Echo", u"after");
    const Lines lines = entriesOf(folder.file(u"one"));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].outcome, "\"in\"");
}

TEST_F(TraceTest, GoesToTheEndOfAFileOfAnyName) {
    const std::u16string file = folder.file(u"跟踪 1.txt");
    for (int i = 0; i < 2; ++i) {
        const TraceScope scope(Trace::open(file, TraceMasking::showsValues));
        call(component, u"Echo", u"收款");
    }
    const auto lines = linesOf(file);
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], lines[2]);
    const std::regex entry("\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}Z\t\\d+\t0\t\\d+\tmethod\t"
                           "Test\\.Component\\.Echo\t\\(\"收款\"\\)\t\"收款\"");
    EXPECT_TRUE(std::regex_match(lines[1], entry)) << lines[1];
}

TEST_F(TraceTest, AFileThatCannotBeOpenedGivesNoTrace) {
    EXPECT_EQ(Trace::open(folder.path(), TraceMasking::showsValues), nullptr) << "a folder";
    EXPECT_EQ(Trace::open(folder.file(u"no/such/folder"), TraceMasking::showsValues), nullptr);
    EXPECT_EQ(Trace::open(std::u16string(u"a\0b", 3), TraceMasking::showsValues), nullptr);
    EXPECT_FALSE(Trace::anyOpen());
}

TEST_F(TraceTest, HiddenValuesLeaveTheirKind) {
    const Dictionary record = makeDictionary();
    const Lines lines = traced(
        [&] {
            record.set(u"FName", u"Meier");
            record.getValue(u"FName", u"none");
            call(component, u"Echo", Date{45351});
            call(component, u"Echo", 12.5);
            call(component, u"Echo", true);
            call(component, u"getanyrecordset", u"SELECT FName FROM t WHERE FName='Meier' AND FQty>12.5");
            EXPECT_EQ(errorOf([&] { call(component, u"Fail"); }), 5001);
        },
        TraceMasking::hidesValues);
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[0].arguments, "(\"FName\", <text 5>)");
    EXPECT_EQ(lines[1].arguments, "(\"FName\", <text 4>)");
    EXPECT_EQ(lines[1].outcome, "<text 5>");
    EXPECT_EQ(lines[2].outcome, "<date>");
    EXPECT_EQ(lines[3].outcome, "<number>");
    EXPECT_EQ(lines[4].outcome, "True");
    EXPECT_EQ(lines[5].arguments, "(\"SELECT FName FROM t WHERE FName='?' AND FQty>?\")");
    EXPECT_EQ(lines[6].outcome, "error 5001 from \"Test\": \"no '?' in\\nrow ?\"");
}

struct LiteralCase {
    const char* name;
    const char16_t* sql;
    std::vector<std::u16string> typed;
    const char* hidden;
};

class HidesLiterals : public testing::TestWithParam<LiteralCase> {};

TEST_P(HidesLiterals, OfSqlText) {
    EXPECT_EQ(toUtf8(withoutLiterals(GetParam().sql, GetParam().typed)), GetParam().hidden);
}

INSTANTIATE_TEST_SUITE_P(
    Sql, HidesLiterals,
    testing::Values(LiteralCase{"DateRange",
                                u"convert(char(10),t1.FDate,120) BETWEEN '2024-02-01' AND '2024-02-29'",
                                {},
                                "convert(char(?),t1.FDate,?) BETWEEN '?'"},
                    LiteralCase{
                        "QuoteInTheValue", u"FName= 'O'Brien' AND\r\nFQty_2> 7.5 ", {}, "FName= '?' AND\r\nFQty_2> ? "},
                    LiteralCase{"HexadecimalAndCurrency", u"FQty IN (&HFF,￥5,-1E+3)", {}, "FQty IN (?,￥?,-?+?)"},
                    LiteralCase{"RawText", u" FKind= abc  AND", {u"abc"}, " FKind= ?  AND"},
                    LiteralCase{"LineBreakInTheValue", u"FName= 'a'\r\nb' ", {u"a'\r\nb"}, "FName= '?' "},
                    LiteralCase{"WordsThatOnlyHoldTheValue", u"FCash= 'Cash' ", {u"Cash", u"C"}, "FCash= '?' "}),
    [](const auto& sql) { return sql.param.name; });

} // namespace
} // namespace orv::automation::tests
