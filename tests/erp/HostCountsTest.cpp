#include "ControlOnHost.h"
#include "automation/Coercion.h"

#include <cmath>
#include <functional>
#include <optional>

// Every operator and keyword against the 5,000 receipts: the bills that the control's SQL finds, and those that plain
// C++ picks from the raw rows by what the comparison means to the user's database. Today is 29 February 2024.
namespace orv::erp {
namespace {

using namespace testing;
using automation::Value;

/// A receipt as it is stored; nothing for NULL.
struct Receipt {
    std::optional<std::string> date; ///< yyyy-mm-dd
    std::optional<double> amount;
    std::optional<std::string> explanation; ///< as the collation compares: lower case, no blanks at the end
};

/// The text as the database's collation sees it: letter case, full-width letters and blanks at the end do not count.
std::string folded(const std::string& text) {
    std::u16string units = automation::fromUtf8(text);
    while (units.ends_with(u' '))
        units.pop_back();
    for (char16_t& unit : units) {
        if ((unit >= u'Ａ' && unit <= u'Ｚ') || (unit >= u'ａ' && unit <= u'ｚ'))
            unit = static_cast<char16_t>(unit - u'Ａ' + u'A');
        if (unit >= u'A' && unit <= u'Z')
            unit = static_cast<char16_t>(unit - u'A' + u'a');
    }
    return utf8(std::u16string_view(units));
}

std::vector<Receipt> readReceipts(const Database& database) {
    std::vector<Receipt> receipts;
    for (const auto& row : database.rawQuery("SELECT FDate, FAmountFor, FExplanation FROM t_RP_RBill").rows) {
        Receipt receipt;
        if (!row[0].isNull())
            receipt.date = utf8(row[0]).substr(0, 10);
        if (!row[1].isNull())
            receipt.amount = automation::toNumber(row[1]);
        if (!row[2].isNull())
            receipt.explanation = folded(utf8(row[2]));
        receipts.push_back(receipt);
    }
    return receipts;
}

struct CountCase {
    const char16_t* field;
    const char16_t* comparison;
    const char16_t* value;
    std::function<bool(const Receipt&)> picks;
};

std::function<bool(const Receipt&)> dated(std::function<bool(const std::string&)> picks) {
    return [picks](const Receipt& r) { return r.date && picks(*r.date); };
}
std::function<bool(const Receipt&)> between(const char* first, const char* last) {
    return dated([first, last](const std::string& d) { return d >= first && d <= last; });
}
/// Scalar comparisons of amounts take NULL for 0.
std::function<bool(const Receipt&)> amount(std::function<bool(double)> picks) {
    return [picks](const Receipt& r) { return picks(r.amount.value_or(0)); };
}
std::function<bool(const Receipt&)> explained(std::function<bool(const std::string&)> picks) {
    return [picks](const Receipt& r) { return r.explanation && picks(*r.explanation); };
}
bool contains(const std::string& text, const char* part) {
    return text.find(part) != std::string::npos;
}

const std::vector<CountCase>& cases() {
    static const char16_t* const date = u"日期";
    static const char16_t* const sum = u"金额+原币";
    static const char16_t* const note = u"摘要";
    static const std::vector<CountCase> all{
        {date, u"等于", u"2024-02-29", dated([](auto& d) { return d == "2024-02-29"; })},
        {date, u"不等于", u"2024-02-29", [](const Receipt& r) { return r.date != "2024-02-29"; }},
        {date, u"小于", u"2023-03-31", dated([](auto& d) { return d < "2023-03-31"; })},
        {date, u"小于等于", u"2023-03-31", dated([](auto& d) { return d <= "2023-03-31"; })},
        {date, u"大于", u"2024-02-29", dated([](auto& d) { return d > "2024-02-29"; })},
        {date, u"大于等于", u"2024-02-29", dated([](auto& d) { return d >= "2024-02-29"; })},
        {date, u"介于", u"2023-12-31 and 2024/1/1", between("2023-12-31", "2024-01-01")},
        {date, u"属于", u"2024-02-28, 2024/2/29",
         dated([](auto& d) { return d == "2024-02-28" || d == "2024-02-29"; })},
        {date, u"不属于", u"2024-02-28,2024-02-29",
         dated([](auto& d) { return d != "2024-02-28" && d != "2024-02-29"; })},
        {date, u"昨天", u"", between("2024-02-28", "2024-02-28")},
        {date, u"今天", u"", between("2024-02-29", "2024-02-29")},
        {date, u"明天", u"", between("2024-03-01", "2024-03-01")},
        {date, u"上周", u"", between("2024-02-19", "2024-02-25")},
        {date, u"本周", u"", between("2024-02-26", "2024-03-03")},
        {date, u"下周", u"", between("2024-03-04", "2024-03-10")},
        {date, u"上月", u"", between("2024-01-01", "2024-01-31")},
        {date, u"本月", u"", between("2024-02-01", "2024-02-29")},
        {date, u"下月", u"", between("2024-03-01", "2024-03-31")},
        {date, u"最近天数", u"30", between("2024-01-30", "2024-02-29")},
        {date, u"未来天数", u"3", between("2024-02-29", "2024-03-03")},
        {date, u"为空", u"", [](const Receipt& r) { return !r.date; }},
        {date, u"不为空", u"", [](const Receipt& r) { return r.date.has_value(); }},

        {sum, u"等于", u"0", amount([](double a) { return a == 0; })},
        {sum, u"不等于", u"0", amount([](double a) { return a != 0; })},
        {sum, u"不是", u"0", amount([](double a) { return a != 0; })},
        {sum, u"小于", u"0", amount([](double a) { return a < 0; })},
        {sum, u"小于等于", u"1000.5", amount([](double a) { return a <= 1000.5; })},
        {sum, u"大于", u"50000", amount([](double a) { return a > 50000; })},
        {sum, u"大于等于", u"-100", amount([](double a) { return a >= -100; })},
        {sum, u"介于", u"-50.5 AND 2000",
         [](const Receipt& r) { return r.amount && *r.amount >= -50.5 && *r.amount <= 2000; }},
        {sum, u"属于", u"0, 100", [](const Receipt& r) { return r.amount && (*r.amount == 0 || *r.amount == 100); }},
        {sum, u"不属于", u"0,100", [](const Receipt& r) { return r.amount && *r.amount != 0 && *r.amount != 100; }},

        {note, u"等于", u"货款", explained([](auto& t) { return t == "货款"; })},
        {note, u"不等于", u"货款", [](const Receipt& r) { return r.explanation.value_or("") != "货款"; }},
        {note, u"包含", u"A", explained([](auto& t) { return contains(t, "a"); })},
        {note, u"不包含", u"货", explained([](auto& t) { return !contains(t, "货"); })},
        {note, u"属于", u"货款,OVERSEAS", explained([](auto& t) { return t == "货款" || t == "overseas"; })},
        {note, u"不属于", u"货款", explained([](auto& t) { return t != "货款"; })},
        {note, u"为空", u"", [](const Receipt& r) { return r.explanation.value_or("").empty(); }},
        {note, u"不为空", u"", explained([](auto& t) { return !t.empty(); })},
    };
    return all;
}

class Counts : public ControlOnHost {
  protected:
    /// Enters one condition in the first line as a user does.
    void enter(const CountCase& c) {
        choose(2, 1, c.field);
        choose(3, 1, c.comparison);
        const bool typed = *c.value == u'\0' || grid().userType(4, 1, c.value);
        ASSERT_TRUE(typed) << "the cell refuses the value";
    }
};

TEST_F(Counts, AgreeWithPlainCppForEveryOperatorAndKeyword) {
    const std::vector<Receipt> receipts = readReceipts(erp().database());
    ASSERT_EQ(receipts.size(), 5000U);
    open(1000201);
    for (const CountCase& c : cases()) {
        SCOPED_TRACE(utf8(c.field) + " " + utf8(c.comparison) + " " + utf8(c.value));
        enter(c);
        std::u16string where;
        ASSERT_TRUE(filter.GetFilterSql(where, true));
        const auto expected = static_cast<std::size_t>(std::ranges::count_if(receipts, c.picks));
        EXPECT_EQ(erp().list(1000201, where, u"", u"", 0).bills, expected) << utf8(where);
        EXPECT_NE(expected, receipts.size()) << "a case that every bill passes proves nothing";
    }
}

} // namespace
} // namespace orv::erp
