#include "conditions/QuickFilters.h"
#include "Samples.h"

namespace orv::conditions {
namespace {

using namespace sample;

std::string quick(const char* classType, const QuickFilterChoice& choice, FakeSource& source, const char* start = "") {
    std::u16string extra = fromUtf8(start);
    return outcome([&] {
        appendQuickFilters(extra, fromUtf8(classType), choice, source);
        return extra;
    });
}

TEST(QuickFilters, KnowTheirDocumentTables) {
    struct TableCase {
        const char* classType;
        const char* audited;
        const char* withoutVoucher;
    };
    const TableCase cases[] = {
        {"收款单据", "t_RP_RBill.FStatus=1 ", "t_RP_RBill.FVoucherId=0 "},
        {"付款单据", "t_RP_PBill.FStatus=1 ", "t_RP_PBill.FVoucherId=0 "},
        {"其他收款单", "t_RP_ROtherBill.FStatus=1 ", "t_RP_ROtherBill.FVoucherId=0 "},
        {"其他付款单", "t_RP_POtherBill.FStatus=1 ", "t_RP_POtherBill.FVoucherId=0 "},
        {" 组装拆卸单  ", "ICChange.FStatus=1 ", "ICChange.FVoucherId=0 "},
        {"收款源单", "vw_arap_RBillList.FStatus=1 ", "vw_arap_RBillList.FVoucherId=0 "},
        {"付款源单", "vw_arap_PBillList.FStatus=1 ", "vw_arap_PBillList.FVoucherId=0 "},
        {"收款退款源单", "vw_arap_RBackBillList.FStatus=1 ", "vw_arap_RBackBillList.FVoucherId=0 "},
        {"付款退款源单", "vw_arap_PBackBillList.FStatus=1 ", "vw_arap_PBackBillList.FVoucherId=0 "},
        {"收款", "", ""},
        {"收款单据1", "", ""},
        {"", "", ""},
    };
    for (const TableCase& c : cases) {
        FakeSource source;
        source.isTypeList = false;
        EXPECT_EQ(quick(c.classType, {-1, 0, -1}, source), c.audited) << c.classType;
        EXPECT_EQ(quick(c.classType, {-1, -1, 1}, source), c.withoutVoucher) << c.classType;
    }
}

TEST(QuickFilters, NarrowByEachSelector) {
    struct SelectorCase {
        const char* today;
        QuickFilterChoice choice;
        const char* expected;
    };
    const SelectorCase cases[] = {
        {"2024-02-05", {0, -1, -1}, "( convert(datetime,convert(varchar(30),ICChange.FDate,111))='2024/02/05')"},
        // A Monday, a Sunday and a Thursday of one week.
        {"2024-02-26",
         {1, -1, -1},
         "(convert(datetime,convert(varchar(30),ICChange.FDate,111)) >='2024/02/26'  AND  "
         "convert(datetime,convert(varchar(30),ICChange.FDate,111)) < '2024/03/04')"},
        {"2024-02-29",
         {1, -1, -1},
         "(convert(datetime,convert(varchar(30),ICChange.FDate,111)) >='2024/02/26'  AND  "
         "convert(datetime,convert(varchar(30),ICChange.FDate,111)) < '2024/03/04')"},
        {"2024-03-03",
         {1, -1, -1},
         "(convert(datetime,convert(varchar(30),ICChange.FDate,111)) >='2024/02/26'  AND  "
         "convert(datetime,convert(varchar(30),ICChange.FDate,111)) < '2024/03/04')"},
        {nullptr,
         {2, -1, -1},
         "(CONVERT(varchar(100),ICChange.FDate, 23)>='2023/12/26' AND  "
         "CONVERT(varchar(100),ICChange.FDate, 23)<'2024/01/25')"},
        {nullptr, {3, 2, 2}, ""},
        {nullptr, {-1, -1, -1}, ""},
        {nullptr, {3, 0, 2}, "ICChange.FStatus=1 "},
        {nullptr, {3, 1, 2}, "ICChange.FStatus=0 "},
        {nullptr, {3, 2, 0}, "ICChange.FVoucherId>0 "},
        {nullptr, {3, 2, 1}, "ICChange.FVoucherId=0 "},
        {"2024-02-05",
         {0, 1, 0},
         "( convert(datetime,convert(varchar(30),ICChange.FDate,111))='2024/02/05') and ICChange.FStatus=0  and "
         "ICChange.FVoucherId>0 "},
    };
    for (const SelectorCase& c : cases) {
        FakeSource source;
        if (c.today != nullptr)
            source.today = c.today;
        source.isTypeList = false;
        source.period = {{1, day("2023-12-26") + 0.75, day("2024-01-25")}};
        EXPECT_EQ(quick("组装拆卸单", c.choice, source), c.expected)
            << "time " << c.choice.time << ", check " << c.choice.check << ", post " << c.choice.post;
    }
}

TEST(QuickFilters, LeaveOutAPeriodThatIsNone) {
    FakeSource source;
    source.isTypeList = false;
    for (const int number : {0, -1}) {
        source.period = {{number, 1, 2}};
        EXPECT_EQ(quick("付款单据", {2, 1, -1}, source, "x"), "x and t_RP_PBill.FStatus=0 ") << "period " << number;
    }
}

TEST(QuickFilters, NameTheWageClassOfWageDocumentsOnly) {
    FakeSource source;
    source.isTypeList = false;
    source.wageClass = 1234567;
    EXPECT_EQ(quick("计时工资单", {}, source), "ICHourlywage.FClsID= 1234567");
    source.wageClass = -1;
    EXPECT_EQ(quick("计件工资单", {3, 0, 1}, source, "x"),
              "x and ICPiecewage.FStatus=1  and ICPiecewage.FVoucherId=0  and ICPiecewage.FClsID= -1");
    source.wageClass.reset();
    EXPECT_EQ(quick("计件工资单", {}, source), "error 4711: wage class");
}

TEST(QuickFilters, SkipDateAndAuditOfTypeLists) {
    FakeSource source; // neither date nor period may be asked for
    source.isTypeList = true;
    source.wageClass = 7;
    EXPECT_EQ(quick("计时工资单", {0, 0, 0}, source), "ICHourlywage.FVoucherId>0  and ICHourlywage.FClsID= 7");
    EXPECT_EQ(quick("收款源单", {2, 1, 2}, source), "");
}

TEST(QuickFilters, AskNothingForOtherClassTypes) {
    FakeSource noHost;
    EXPECT_EQ(quick("销售订单", {0, 0, 0}, noHost, "x"), "x");
}

} // namespace
} // namespace orv::conditions
