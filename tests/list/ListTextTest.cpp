#include "erp/windows/list/CellText.h"
#include "erp/windows/list/ListColumn.h"
#include "erp/windows/list/Options.h"
#include "erp/windows/list/SqlText.h"

#include <gtest/gtest.h>

namespace orv::erp {

void PrintTo(const HeadingCell& cell, std::ostream* out) {
    *out << "column " << cell.from << "+" << cell.count << " level " << cell.level << "/" << cell.levels;
}

namespace {

ListColumn captioned(const wchar_t* first, const wchar_t* second = L"") {
    ListColumn column;
    column.first = first;
    column.second = second;
    return column;
}

TEST(ListHeading, WithoutGroupsHasOneLevel) {
    EXPECT_EQ(headingOf({captioned(L"日期$"), captioned(L"编号$")}),
              (std::vector<HeadingCell>{{L"日期", 0, 1, 0, 1}, {L"编号", 1, 1, 0, 1}}));
}

TEST(ListHeading, AGroupStandsOverItsColumns) {
    EXPECT_EQ(headingOf({captioned(L"日期$"), captioned(L"金额+|+|", L"原币"), captioned(L"", L"本位币"),
                         captioned(L"", L"余额"), captioned(L"期间", L"年")}),
              (std::vector<HeadingCell>{{L"日期", 0, 1, 0, 2},
                                        {L"金额", 1, 3, 0, 1},
                                        {L"原币", 1, 1, 1, 1},
                                        {L"本位币", 2, 1, 1, 1},
                                        {L"余额", 3, 1, 1, 1},
                                        {L"期间", 4, 1, 0, 1},
                                        {L"年", 4, 1, 1, 1}}));
}

TEST(ListHeading, NoGroupReachesBeyondTheLastColumn) {
    EXPECT_EQ(headingOf({captioned(L"金额+|+|", L"原币")}).at(0).count, 1u);
}

TEST(ListHeading, OneLineNamesTheGroupOfEachColumn) {
    EXPECT_EQ(headingText({captioned(L"日期$"), captioned(L"金额+|", L"原币"), captioned(L"", L"本位币")}),
              L"日期\t金额-原币\t金额-本位币");
}

ListColumn ofType(long type, const wchar_t* decimalKey = L"") {
    ListColumn column;
    column.type = type;
    column.decimalKey = decimalKey;
    return column;
}

_variant_t decimal(const wchar_t* text) {
    _variant_t value(text);
    VariantChangeType(&value, &value, 0, VT_DECIMAL);
    return value;
}

TEST(ListCell, ShowsEachTypeAsPeopleReadIt) {
    ListColumn states = ofType(2);
    states.valueTexts = {{L"0", L"未审核"}, {L"1", L"已审核"}};
    const ListColumn amount = ofType(6, L"FAmount_Decimal");
    struct {
        ListColumn column;
        _variant_t value;
        int decimals;
        const wchar_t* text;
    } const cases[] = {
        {ofType(0), _variant_t(45351.0, VT_DATE), 2, L"2024-02-29"},
        {ofType(7), _variant_t(45351.5, VT_DATE), 2, L"2024-02-29 12:00:00"},
        {ofType(7), _variant_t(45351 + 86399.0 / 86400, VT_DATE), 2, L"2024-02-29 23:59:59"},
        {amount, decimal(L"1234567.5"), 2, L"1,234,567.50"},
        {amount, decimal(L"-999.995"), 0, L"-1,000"},
        {amount, decimal(L"-0.001"), 2, L"0.00"},
        {amount, _variant_t(), 2, L""},
        {ofType(9), decimal(L"7.1036"), 2, L"7.1036"},
        {ofType(10), decimal(L"1234.5"), 2, L"1,234.5"},
        {ofType(8), _variant_t(2024L), 2, L"2024"},
        {ofType(1), _variant_t(L"A&B"), 2, L"A&B"},
        {states, _variant_t(1L), 2, L"已审核"},
        {states, _variant_t(7L), 2, L"7"},
        {states, _variant_t(true), 2, L"已审核"},
        {ofType(-1), _variant_t(true), 2, L"√"},
    };
    for (const auto& expected : cases)
        EXPECT_EQ(cellText(expected.column, expected.value, expected.decimals), expected.text);
    EXPECT_EQ(sumText(amount, 1234.5), L"1,234.50");
    EXPECT_EQ(sumText(ofType(6), 1234.5), L"1,234.5");
    EXPECT_EQ(sumText(ofType(4), 1200), L"1,200");
}

TEST(ListSql, BreaksBeforeClausesButNotInTextsAndBrackets) {
    EXPECT_EQ(brokenLines(L"SELECT a FROM t LEFT OUTER JOIN u ON u.a=t.a WHERE a=' from x' AND b IN (SELECT b FROM v)\n"
                          L" order by a"),
              L"SELECT a\r\nFROM t\r\nLEFT OUTER JOIN u ON u.a=t.a\r\nWHERE a=' from x' AND b IN (SELECT b FROM "
              L"v)\r\n\r\norder by a");
}

TEST(ListCommandLine, ReadsItsOptions) {
    const ListOptions options = readOptions(
        {"--lang", "en", "--user", "张敏", "--class-type", "1000801", "--db", ":memory:", "--size", "900x600"});
    EXPECT_EQ(options.language, L"EN");
    EXPECT_EQ(options.user, L"张敏");
    EXPECT_EQ(options.classType, 1000801);
    EXPECT_EQ(options.database, L":memory:");
    EXPECT_EQ(options.width, 900);
    EXPECT_EQ(options.height, 600);
    EXPECT_EQ(readOptions({}).language, L"CHS");
}

TEST(ListCommandLine, RefusesWhatMakesNoSense) {
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"--lang", "FR"}, {"--class-type", "receipts"}, {"--size", "900"}, {"--no-such-option"}}) {
        try {
            readOptions(arguments);
            ADD_FAILURE() << arguments.at(0) << " was taken";
        } catch (const OptionsMessage& message) {
            EXPECT_NE(message.exitCode(), 0);
        }
    }
}

} // namespace
} // namespace orv::erp
