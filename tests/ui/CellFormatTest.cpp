#include "ui/CellFormat.h"
#include "Support.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace orv::ui {
namespace {

struct TypedCase {
    const char* name;
    CellFormat format;
    const char16_t* typed;
    const char16_t* stored; ///< null: refused
};

void PrintTo(const TypedCase& c, std::ostream* out) {
    *out << c.name;
}

const CellFormat edit5{.type = CellType::edit, .maxLength = 5};
const CellFormat whole{.type = CellType::wholeNumber, .minimum = 0, .maximum = 366};
const CellFormat amount{.type = CellType::decimal, .decimals = 2};
const CellFormat wide{.type = CellType::decimal, .minimum = -1e18, .maximum = 1e18, .decimals = 4};
const CellFormat date{.type = CellType::date, .earliestDate = u"01011900"};
const CellFormat anyDate{.type = CellType::date};
const CellFormat time{.type = CellType::time};

class TypedText : public testing::TestWithParam<TypedCase> {};

TEST_P(TypedText, IsStoredOrRefused) {
    const TypedCase& c = GetParam();
    const std::optional<std::u16string> stored = storedFromTyped(c.format, c.typed);
    EXPECT_EQ(stored ? shown(*stored) : "(refused)", c.stored ? shown(c.stored) : "(refused)")
        << "typed \"" << shown(c.typed) << "\"";
}

std::string caseName(const testing::TestParamInfo<TypedCase>& info) {
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(
    Edit, TypedText,
    testing::Values(TypedCase{"NoLimit", {}, u"  as it stands ", u"  as it stands "},
                    TypedCase{"AtTheLimit", edit5, u"12345", u"12345"}, TypedCase{"Cut", edit5, u"123456", u"12345"},
                    TypedCase{"CutBeforeASurrogatePair", edit5, u"1234\U00020BB7", u"1234"},
                    TypedCase{"CutAfterASurrogatePair", edit5, u"123\U00020BB7x", u"123\U00020BB7"},
                    TypedCase{"Static", {.type = CellType::staticText}, u"x", nullptr},
                    TypedCase{"CheckBox", {.type = CellType::checkBox}, u"1", nullptr}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Number, TypedText,
    testing::Values(TypedCase{"Blank", whole, u"  ", u""}, TypedCase{"Zero", whole, u"0", u"0"},
                    TypedCase{"MinusZero", whole, u"-0", u"0"}, TypedCase{"LeadingZeros", whole, u" 007 ", u"7"},
                    TypedCase{"WholeWithPoint", whole, u"3.0", u"3"}, TypedCase{"Fraction", whole, u"3.5", nullptr},
                    TypedCase{"AtTheMaximum", whole, u"366", u"366"},
                    TypedCase{"AboveTheMaximum", whole, u"367", nullptr},
                    TypedCase{"BelowTheMinimum", whole, u"-1", nullptr}, TypedCase{"NoNumber", whole, u"12a", nullptr},
                    TypedCase{"Grouped", amount, u"1,234,567.80", u"1234567.8"},
                    TypedCase{"AllPlaces", amount, u"0.05", u"0.05"},
                    TypedCase{"TooManyPlaces", amount, u"0.055", nullptr},
                    TypedCase{"ZerosBeyondThePlaces", amount, u"1.1000", u"1.1"},
                    TypedCase{"DefaultMaximum", amount, u"999999999999.99", u"999999999999.99"},
                    TypedCase{"BeyondDefaultMaximum", amount, u"1000000000000", nullptr},
                    TypedCase{"Exponent", amount, u"1e3", u"1000"},
                    TypedCase{"LargeWithoutExponent", wide, u"123456789012345678", u"123456789012345680"},
                    TypedCase{"SmallWithoutExponent", wide, u"-0.0001", u"-0.0001"},
                    TypedCase{"TensKeepTheirZeros", wide, u"1500", u"1500"}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    DateAndTime, TypedText,
    testing::Values(TypedCase{"Dashes", date, u"2024-02-29", u"02292024"},
                    TypedCase{"Slashes", date, u"2024/2/1", u"02012024"},
                    TypedCase{"TimeOfDayDropped", date, u"2024-12-31 23:59:59", u"12312024"},
                    TypedCase{"NoSuchDay", date, u"2023-02-29", nullptr},
                    TypedCase{"Earliest", date, u"1900-01-01", u"01011900"},
                    TypedCase{"BeforeEarliest", date, u"1899-12-31", nullptr},
                    TypedCase{"OldDate", anyDate, u"1850-06-15", u"06151850"},
                    TypedCase{"OldDateWithTime", anyDate, u"1850-06-15 18:00", u"06151850"},
                    TypedCase{"TimeAlone", anyDate, u"10:30", nullptr}, TypedCase{"NoDate", date, u"now", nullptr},
                    TypedCase{"BlankDate", date, u"", u""}, TypedCase{"Minutes", time, u"9:05", u"090500"},
                    TypedCase{"Seconds", time, u"23:59:59", u"235959"}, TypedCase{"Midnight", time, u"0:00", u"000000"},
                    TypedCase{"TimeWithDate", time, u"2024-02-01 9:05", nullptr},
                    TypedCase{"NoSuchTime", time, u"25:00", nullptr}, TypedCase{"BlankTime", time, u" ", u""}),
    caseName);

TEST(ShownText, WritesDatesAndTimesForTheEye) {
    EXPECT_EQ(shownFromStored(date, u"02292024"), u"2024-02-29");
    EXPECT_EQ(shownFromStored(time, u"090500"), u"09:05:00");
    EXPECT_EQ(shownFromStored(date, u"2024-02-29"), u"2024-02-29");
    EXPECT_EQ(shownFromStored(date, u""), u"");
    EXPECT_EQ(shownFromStored(time, u"9:05"), u"9:05");
    EXPECT_EQ(shownFromStored(amount, u"02292024"), u"02292024");
}

} // namespace
} // namespace orv::ui
