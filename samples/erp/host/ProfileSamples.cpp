#include "erp/host/ProfileSamples.h"

#include "automation/Coercion.h"
#include "automation/Records.h"
#include "erp/host/ProfileStore.h"
#include "support/Letters.h"

namespace orv::erp {

using automation::Dictionary;

namespace {

constexpr std::int32_t receipts = 1000201;
constexpr std::int32_t payments = 1000202;
constexpr std::int32_t deliveries = 1000301;
constexpr std::int32_t vouchers = 1000801;

struct SampleScheme {
    std::int32_t user;
    std::int32_t classType;
    const char16_t* name; ///< as it is stored
    bool shared;
    const char16_t* orderBy;
    const char16_t* relation;
    const char16_t* colHide;
    std::int16_t cboTime;
    std::int16_t cboCheck;
    bool usedLast = false;
};

// Positions of lists: cboTime 2 is the period, 3 everything; cboCheck 1 is "not audited", 2 everything. Comparisons
// count in the sets of conditions.json.
constexpr SampleScheme schemes[] = {
    {1, receipts, u"Default Schema", false, u"FDate=0|FBillNo=1|", u"", u"", 3, 2},
    {1, receipts, u"本月未审核", false, u"FDate=1|",
     u"##<&t_RP_RBill.FDate##<&16##<&##<&##<&并且##<&||##<&t_RP_RBill.FStatus##<&0##<&0##<&##<&并且##<&||", u"", 3, 2},
    {1, receipts, u"大额收款", true, u"FAmount=0|FDate=1|", u"##<&t_RP_RBill.FAmount##<&6##<&50000##<&##<&并且##<&||",
     u"FContractNo=0|FAttachments=0|FExchangeRate=0|", 3, 2},
    {2, receipts, u"Default Schema", false, u"FBillNo=1|", u"", u"", 2, 2},
    {2, receipts, u"客户对账", true, u"FCustomer=1|FDate=1|",
     u"(##<&t_RP_RBill.FDate##<&15##<&##<&##<&或##<&||##<&t_RP_RBill.FDate##<&16##<&##<&)##<&并且##<&||", u"", 3, 0},
    {3, receipts, u"O'Brien 的收款", false, u"", u"##<&t_RP_RBill.FCustomer##<&2##<&O'Brien##<&##<&并且##<&||", u"", 3,
     2},
    {3, receipts, u"待审核", false, u"FDate=1|",
     u"##<&t_RP_RBill.FDate##<&6##<&2024-01-01 AND 2024-12-31##<&##<&##<&||", u"", 3, 1, true},
    {1, payments, u"Default Schema", false, u"FDate=0|", u"", u"", 3, 2},
    {2, payments, u"本月付款", true, u"FDate=1|FBillNo=1|", u"##<&t_RP_PBill.FDate##<&16##<&##<&##<&并且##<&||", u"", 3,
     2},
    {3, payments, u"预付款", false, u"FSupplier=1|", u"##<&t_RP_PBill.FPayTypeID##<&0##<&1##<&##<&并且##<&||", u"", 3,
     2},
    {1, deliveries, u"Default Schema", false, u"FDate=0|FBillNo=1|", u"", u"", 3, 2},
    {1, deliveries, u"本月未审核发货", true, u"FDate=1|",
     u"##<&t_SO_Delivery.FDate##<&16##<&##<&##<&并且##<&||##<&t_SO_Delivery.FStatus##<&0##<&0##<&##<&并且##<&||",
     u"FAddress=0|FContact=0|", 3, 2},
    {2, deliveries, u"大额发货", true, u"FAmount=0|", u"##<&t_SO_Delivery.FAmount##<&6##<&50000##<&##<&并且##<&||", u"",
     3, 2},
    {1, vouchers, u"Default Schema", false, u"FDate=0|FNumber=1|", u"", u"", 3, 2},
    {1, vouchers, u"上月凭证", true, u"FGroup=1|FNumber=1|", u"##<&t_GL_Voucher.FDate##<&15##<&##<&##<&并且##<&||",
     u"FYear=0|FPeriod=0|", 3, 2},
    {2, vouchers, u"大额凭证", true, u"FDebitTotal=0|",
     u"##<&t_GL_Voucher.FDebitTotal##<&6##<&100000##<&##<&并且##<&||", u"", 3, 2},
};

Dictionary headerOf(const SampleScheme& scheme) {
    const Dictionary header = automation::makeDictionary();
    header.set(u"FSchemeID", std::int32_t{0});
    header.set(u"FSchemeName", support::replaceAll(scheme.name, u"'", u"''"));
    header.set(u"FTranType", scheme.classType);
    header.set(u"FSysName", std::u16string());
    header.set(u"FStatus", std::int32_t{0});
    header.set(u"FIsShare", std::int32_t{scheme.shared ? 1 : 0});
    return header;
}

Dictionary entriesOf(const SampleScheme& scheme) {
    // What is left out has its default when the scheme is loaded.
    const Dictionary entries = automation::makeDictionary();
    entries.set(u"OrderBy", scheme.orderBy);
    entries.set(u"Relation", scheme.relation);
    entries.set(u"ColHide", scheme.colHide);
    entries.set(u"SelPage", u",1*,2,");
    entries.set(u"cboTime", scheme.cboTime);
    entries.set(u"cboCheck", scheme.cboCheck);
    return entries;
}

} // namespace

void saveSampleSchemes(Database& database) {
    ProfileStore store(database);
    for (const SampleScheme& scheme : schemes) {
        const Dictionary header = headerOf(scheme);
        store.save(scheme.user, header, entriesOf(scheme));
        if (scheme.usedLast)
            store.setUserValue(scheme.user, u"VTAFilter" + automation::numberToText(scheme.classType), u"DefaultScheme",
                               automation::toText(header.get(u"FSchemeID")));
    }
}

} // namespace orv::erp
