#include "conditions/QuickFilters.h"

#include "automation/NumberText.h"
#include "support/Dates.h"
#include "support/Letters.h"

namespace orv::conditions {

namespace {

struct DocumentTable {
    std::u16string_view classType;
    std::u16string_view table;
};

constexpr std::u16string_view hourlyWage = u"ICHourlywage";
constexpr std::u16string_view pieceWage = u"ICPiecewage";

// Asked in this order. "其他付款单" stands twice; the second one is never reached.
constexpr DocumentTable documentTables[] = {
    {u"收款单据", u"t_RP_RBill"},
    {u"付款单据", u"t_RP_PBill"},
    {u"其他收款单", u"t_RP_ROtherBill"},
    {u"其他付款单", u"t_RP_POtherBill"},
    {u"其他付款单", u"t_RP_POtherBill"},
    {u"组装拆卸单", u"ICChange"},
    {u"收款源单", u"vw_arap_RBillList"},
    {u"付款源单", u"vw_arap_PBillList"},
    {u"收款退款源单", u"vw_arap_RBackBillList"},
    {u"付款退款源单", u"vw_arap_PBackBillList"},
    {u"计时工资单", hourlyWage},
    {u"计件工资单", pieceWage},
};

constexpr const char16_t* slashDate = u"yyyy/mm/dd";

void beginPart(std::u16string& extra) {
    if (!extra.empty())
        extra += u" and ";
}

void appendToday(std::u16string& extra, std::u16string_view table, double today) {
    beginPart(extra);
    extra += u"( convert(datetime,convert(varchar(30),";
    extra += table;
    extra += u".FDate,111))='";
    support::appendDate(extra, today, slashDate);
    extra += u"')";
}

/// Monday up to, but without, the next Monday.
void appendThisWeek(std::u16string& extra, std::u16string_view table, double today) {
    const double monday = today + 1 - support::dayOfWeek(today);
    beginPart(extra);
    extra += u"(convert(datetime,convert(varchar(30),";
    extra += table;
    extra += u".FDate,111)) >='";
    support::appendDate(extra, monday, slashDate);
    extra += u"'  AND  convert(datetime,convert(varchar(30),";
    extra += table;
    extra += u".FDate,111)) < '";
    support::appendDate(extra, monday + 7, slashDate);
    extra += u"')";
}

/// Style 23 joins with hyphens, the bounds have slashes, and the last day is outside: hosts rely on all three.
void appendPeriod(std::u16string& extra, std::u16string_view table, const CurrentPeriod& period) {
    if (period.number < 1)
        return;
    beginPart(extra);
    extra += u"(CONVERT(varchar(100),";
    extra += table;
    extra += u".FDate, 23)>='";
    support::appendDate(extra, support::datePart(period.start), slashDate);
    extra += u"' AND  CONVERT(varchar(100),";
    extra += table;
    extra += u".FDate, 23)<'";
    support::appendDate(extra, support::datePart(period.end), slashDate);
    extra += u"')";
}

void appendTime(std::u16string& extra, std::u16string_view table, int choice, FilterSqlSource& source) {
    switch (choice) {
    case 0:
        appendToday(extra, table, source.date());
        break;
    case 1:
        appendThisWeek(extra, table, source.date());
        break;
    case 2:
        appendPeriod(extra, table, source.currentPeriod());
        break;
    default:
        break;
    }
}

/// A test of two states by one option: the first two positions ask for one each, any other for neither.
void appendState(std::u16string& extra, std::u16string_view table, int choice, std::u16string_view first,
                 std::u16string_view second) {
    if (choice != 0 && choice != 1)
        return;
    beginPart(extra);
    extra += table;
    extra += choice == 0 ? first : second;
}

} // namespace

std::u16string_view quickFilterTable(std::u16string_view classType) noexcept {
    const std::u16string_view caption = support::Trim(classType);
    for (const DocumentTable& known : documentTables)
        if (caption == known.classType)
            return known.table;
    return {};
}

void appendQuickFilters(std::u16string& extra, std::u16string_view classType, const QuickFilterChoice& choice,
                        FilterSqlSource& source) {
    const std::u16string_view table = quickFilterTable(classType);
    if (table.empty())
        return;
    if (!source.typeList()) {
        appendTime(extra, table, choice.time, source);
        appendState(extra, table, choice.check, u".FStatus=1 ", u".FStatus=0 ");
    }
    appendState(extra, table, choice.post, u".FVoucherId>0 ", u".FVoucherId=0 ");
    if (table == hourlyWage || table == pieceWage) {
        const std::int32_t wageClass = source.wageClassId();
        beginPart(extra);
        extra += table;
        extra += u".FClsID= ";
        automation::appendInteger(extra, wageClass);
    }
}

} // namespace orv::conditions
