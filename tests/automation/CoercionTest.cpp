#include "automation/Coercion.h"

#include "ErrorOf.h"
#include "automation/AutomationError.h"
#include "automation/LocaleRules.h"
#include "automation/Object.h"
#include "automation/Records.h"
#include "automation/Text.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace orv::automation::tests {
namespace {

constexpr std::int32_t noError = 0;

/// An object whose default member is the given value.
class Wrapper final : public Object {
  public:
    explicit Wrapper(Value value) : value_(std::move(value)) {}
    Value invoke(std::u16string_view member, InvokeKind kind, Arguments arguments) override {
        if (!member.empty() || kind != InvokeKind::get || !arguments.empty())
            throw AutomationError::runtime(errorNumber::memberNotFound);
        return value_;
    }

  private:
    Value value_;
};

/// An object whose default member is itself.
class Narcissus final : public Object {
  public:
    Value invoke(std::u16string_view, InvokeKind, Arguments) override { return Value(shared_from_this()); }
};

Value wrapped(Value value) {
    return Value(ObjectRef(std::make_shared<Wrapper>(std::move(value))));
}

TEST(NumberText, HasUpToFifteenDigitsAndAnExponentWhereThePlainFormNeedsMore) {
    const struct {
        double number;
        const char* text;
    } cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {12.5, "12.5"},
        {-3, "-3"},
        {100, "100"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {1.0 / 12, "8.33333333333333E-02"},
        {1234567.891, "1234567.891"},
        {123456789012345.0, "123456789012345"},
        {999999999999999.0, "999999999999999"},
        {999999999999999.9, "1E+15"},
        {1e14, "100000000000000"},
        {1e15, "1E+15"},
        {-1.5e20, "-1.5E+20"},
        {123456789012345678.0, "1.23456789012346E+17"},
        {0.00001, "0.00001"},
        {1e-12, "0.000000000001"},
        {1e-15, "0.000000000000001"},
        {1e-16, "1E-16"},
        {1.25e-14, "1.25E-14"},
        {1.7976931348623157e308, "1.79769313486232E+308"},
        {4.9406564584124654e-324, "4.94065645841247E-324"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(toUtf8(numberToText(c.number)), c.text);
}

TEST(Val, ReadsTheLongestLeadingNumber) {
    const struct {
        const char16_t* text;
        double number;
    } cases[] = {
        {u"", 0},
        {u"abc", 0},
        {u"12", 12},
        {u" 12.50 ", 12.5},
        {u"12abc", 12},
        {u"1 615 198th Street", 1615198},
        {u"\t2\r\n4", 24},
        {u"\u30007", 7},
        {u"-5", -5},
        {u"- 5", -5},
        {u"+5", 5},
        {u"--5", 0},
        {u".5", 0.5},
        {u"-.5.5", -0.5},
        {u"5.", 5},
        {u".", 0},
        {u"1,234", 1},
        {u"\u00A512", 0},
        {u"(5)", 0},
        {u"1e3", 1000},
        {u"1D3", 1000},
        {u"1.5e-3x", 0.0015},
        {u"1 e 3", 1000},
        {u"1e", 1},
        {u"1e+", 1},
        {u"1e-400", 0},
        {u"e3", 0},
        {u"&H1F", 31},
        {u"&h ff", 255},
        {u"&HFFFF", -1},
        {u"&HFFFF&", 65535},
        {u"&H8000", -32768},
        {u"&H10000", 65536},
        {u"&HFFFFFFFF", -1},
        {u"&HG", 0},
        {u"&O17", 15},
        {u"&17", 15},
        {u"&O18", 1},
        {u"2024-02-05", 2024},
        {u"十二", 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Val(c.text), c.number) << '"' << toUtf8(c.text) << '"';
    for (const char16_t* text : {u"1E400", u"-1E400", u"1E99999999999999999999", u"&H100000000"})
        EXPECT_EQ(errorOf([=] { Val(text); }), errorNumber::overflow) << '"' << toUtf8(text) << '"';
    EXPECT_EQ(errorOf([] { Val(std::u16string(400, u'9')); }), errorNumber::overflow) << "400 digits";
    EXPECT_EQ(Val(u"0." + std::u16string(400, u'0') + u"1"), 0) << "too small for a Double";
    EXPECT_EQ(Val(u"0." + std::u16string(400, u'0') + u"1e5"), 0) << "too small in spite of its exponent";
    EXPECT_EQ(Val(u"1" + std::u16string(400, u'0') + u"e-400"), 1) << "long, yet in range";
}

constexpr Decimal largest{.hi = 0xFFFFFFFF, .lo = 0xFFFFFFFFFFFFFFFF, .scale = 0, .negative = false};
constexpr Decimal smallest{.hi = 0, .lo = 1, .scale = 28, .negative = true};

TEST(Coercion, WritesEveryContentAsText) {
    const struct {
        Value value;
        const char16_t* text;
    } cases[] = {
        {Value(), u""},
        {Value(true), u"True"},
        {Value(false), u"False"},
        {Value(std::int16_t{-7}), u"-7"},
        {Value(std::int32_t{2147483647}), u"2147483647"},
        {Value(12.5), u"12.5"},
        {Value(u" a "), u" a "},
        {Value(Currency{125000}), u"12.5"},
        {Value(Currency{30000}), u"3"},
        {Value(Currency{-1}), u"-0.0001"},
        {Value(Currency{0}), u"0"},
        {Value(Currency{std::numeric_limits<std::int64_t>::min()}), u"-922337203685477.5808"},
        {Value(Decimal{0, 150, 2, false}), u"1.5"},
        {Value(Decimal{0, 100, 2, true}), u"-1"},
        {Value(Decimal{0, 100, 0, false}), u"100"},
        {Value(Decimal{0, 0, 4, true}), u"0"},
        {Value(Decimal{1, 0, 0, false}), u"18446744073709551616"},
        {Value(largest), u"79228162514264337593543950335"},
        {Value(smallest), u"-0.0000000000000000000000000001"},
        {wrapped(Value(u"inner")), u"inner"},
        {wrapped(wrapped(Value(5.0))), u"5"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(toUtf8(toText(c.value)), toUtf8(c.text));
    EXPECT_EQ(toText(Value(Date{45327.5})), localeRules().dateText(45327.5)) << "dates are the locale's";
}

TEST(Coercion, ReadsNumbersTruthsAndDates) {
    EXPECT_EQ(toNumber(Value()), 0);
    EXPECT_EQ(toNumber(Value(true)), -1);
    EXPECT_EQ(toNumber(Value(u" 1,234.5 ")), 1234.5);
    EXPECT_EQ(toNumber(Value(Currency{125000})), 12.5);
    EXPECT_EQ(toNumber(Value(Decimal{0, 1, 1, false})), 0.1);
    EXPECT_EQ(toNumber(Value(largest)), 79228162514264337593543950335.0);
    EXPECT_EQ(toNumber(Value(Date{45327.5})), 45327.5);
    EXPECT_EQ(toNumber(wrapped(Value(u"7"))), 7);

    for (const Value& truth : {Value(true), Value(u"True"), Value(u"tRUE"), Value(u"#TRUE#"), Value(u"-1"), Value(0.5),
                               Value(u"0.1"), Value(Date{1})})
        EXPECT_TRUE(toBoolean(truth)) << toUtf8(toText(truth)) << " reads as False";
    for (const Value& untruth : {Value(), Value(false), Value(u"false"), Value(u"#False#"), Value(u"0"), Value(0.0)})
        EXPECT_FALSE(toBoolean(untruth)) << toUtf8(toText(untruth)) << " reads as True";

    EXPECT_EQ(toDate(Value(u"2024-02-05")), Date{45327});
    EXPECT_EQ(toDate(Value(45327.25)), Date{45327.25});
    EXPECT_EQ(toDate(Value(std::int32_t{-657434})), Date{-657434});
    EXPECT_EQ(toDate(Value(u"45327")), Date{45327});
    EXPECT_EQ(toDate(Value()), Date{0});
}

TEST(Coercion, RoundsTiesToEvenAndOverflows) {
    const struct {
        double number;
        std::int32_t whole;
    } cases[] = {{0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {-2.5, -2}, {2.4999, 2}, {2.5001, 3}};
    for (const auto& c : cases) {
        EXPECT_EQ(roundToInt16(c.number), c.whole) << c.number;
        EXPECT_EQ(roundToInt32(c.number), c.whole) << c.number;
    }
    EXPECT_EQ(roundToInt16(32767.4), 32767);
    EXPECT_EQ(roundToInt16(-32768.5), -32768);
    EXPECT_EQ(roundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(toInt16(Value(u"2.5")), 2);
    EXPECT_EQ(toInt32(Value(u"&HFFFF")), 65535);

    const double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double number : {32767.5, -32769.0, 1e300, nan})
        EXPECT_EQ(errorOf([=] { roundToInt16(number); }), errorNumber::overflow) << number;
    for (const double number : {2147483647.5, -2147483649.0, 1e300, nan})
        EXPECT_EQ(errorOf([=] { roundToInt32(number); }), errorNumber::overflow) << number;
}

TEST(Coercion, RaisesTheErrorOfAContentWithoutThatMeaning) {
    const struct {
        const char* name;
        Value value;
        std::int32_t asText;
        std::int32_t asNumber;
        std::int32_t asBoolean;
        std::int32_t asDate;
    } cases[] = {
        {"Null", Null{}, 94, 94, 94, 94},
        {"Missing", Missing{}, 13, 13, 13, 13},
        {"an error code", ErrorCode{5}, 13, 13, 13, 13},
        {"Nothing", ObjectRef(), 91, 91, 91, 91},
        {"a word", u"abc", noError, 13, 13, 13},
        {"an empty text", u"", noError, 13, 13, 13},
        {"a truth word", u"True", noError, 13, noError, 13},
        {"a number too large", u"1E400", noError, 6, 6, 6},
        {"a day before the calendar", -657435.0, noError, noError, noError, 6},
        {"a day after the calendar", 2958466.0, noError, noError, noError, 6},
        {"a dictionary", makeDictionary().object(), 450, 450, 450, 450},
        {"an object that is its own default", ObjectRef(std::make_shared<Narcissus>()), 13, 13, 13, 13},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(errorOf([&] { toText(c.value); }), c.asText);
        EXPECT_EQ(errorOf([&] { toNumber(c.value); }), c.asNumber);
        EXPECT_EQ(errorOf([&] { toBoolean(c.value); }), c.asBoolean);
        EXPECT_EQ(errorOf([&] { toDate(c.value); }), c.asDate);
    }
}

TEST(Coercion, TakesObjects) {
    const ObjectRef record = makeDictionary().object();
    EXPECT_EQ(toObject(Value(record)), record);
    EXPECT_EQ(errorOf([] { toObject(Value(ObjectRef())); }), errorNumber::objectNotSet);
    EXPECT_EQ(errorOf([] { toObject(Value(u"x")); }), errorNumber::objectRequired);
    EXPECT_EQ(errorOf([] { toObject(Value()); }), errorNumber::objectRequired);

    EXPECT_EQ(toObjectOrNothing(Value(record)), record);
    for (const Value& nothing : {Value(), Value(Null{}), Value(Missing{}), Value(ObjectRef())})
        EXPECT_EQ(toObjectOrNothing(nothing), nullptr);
    EXPECT_EQ(errorOf([] { toObjectOrNothing(Value(u"")); }), errorNumber::typeMismatch);
}

TEST(Coercion, KnowsWhatIsNumeric) {
    for (const Value& numeric : {Value(), Value(true), Value(std::int16_t{1}), Value(std::int32_t{1}), Value(1.0),
                                 Value(Currency{1}), Value(smallest), Value(u"1e3"), wrapped(Value(u"12"))})
        EXPECT_TRUE(isNumeric(numeric)) << '"' << toUtf8(toText(numeric)) << "\" counts as no number";
    for (const Value& other : {Value(Null{}), Value(Missing{}), Value(ErrorCode{1}), Value(Date{1}), Value(u"x"),
                               Value(u""), Value(u"1E400"), Value(ObjectRef()), wrapped(Value(u"x"))})
        EXPECT_FALSE(isNumeric(other)) << "content " << other.storage().index();
    EXPECT_TRUE(isDate(u"1999/12/25"));
    EXPECT_TRUE(isDate(u"1999-12-25"));
    EXPECT_FALSE(isDate(u"12.5.1999"));
}

} // namespace
} // namespace orv::automation::tests
