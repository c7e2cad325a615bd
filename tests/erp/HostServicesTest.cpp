#include "HostTesting.h"
#include "automation/AutomationError.h"
#include "automation/Records.h"
#include "erp/db/Database.h"

#include <gtest/gtest.h>

// The components apart from metadata and schemes, in the built-in ERP on 29 February 2024.
namespace orv::erp {
namespace {

using namespace testing;
using automation::Argument;
using automation::AutomationError;
using automation::Dictionary;
using automation::get;
using automation::let;
using automation::Missing;
using automation::ObjectRef;
using automation::toInt32;
using automation::toText;
using automation::Value;

class HostServices : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { erp_ = openErp(); }
    static void TearDownTestSuite() { erp_.reset(); }
    void SetUp() override { erp_->clearCalls(); }

    static ErpHost& erp() { return *erp_; }
    static ObjectRef make(const char16_t* progId) { return erp_->create(progId); }

  private:
    static std::shared_ptr<ErpHost> erp_;
};
std::shared_ptr<ErpHost> HostServices::erp_;

/// Year, period, start and end of a period call, as one text; "refused" in front when the answer is False.
std::string periodOf(ErpHost& host, const char16_t* member) {
    Value year = std::int32_t{0};
    Value period = std::int32_t{0};
    Value start = automation::Date{};
    Value end = automation::Date{};
    const Value answer =
        automation::call(host.create(u"ORVListServer.clsListServer"), member, host.props(), Argument::byReference(year),
                         Argument::byReference(period), Argument::byReference(start), Argument::byReference(end));
    return (automation::toBoolean(answer) ? "" : "refused ") + utf8(year) + " " + utf8(period) + " " +
           utf8(automation::toNumber(start)) + " " + utf8(automation::toNumber(end));
}

TEST_F(HostServices, OffersEveryComponentByName) {
    for (const char16_t* progId :
         {u"QDX.Dictionary", u"QDX.Collection", u"ORVMClass.ClassInfo", u"ORVClassTpl.DataSrv",
          u"ORVMProfile.classInfo", u"ORVMProfile.classUpdate", u"ORVMProfile.ClassUserProfileInfo",
          u"ORVMProfile.ClassUserProfileUpdate", u"ORVConnection.AppConnection", u"ORVEBCGLView.GLView",
          u"ORVEBCGLView.GLData", u"ORVEBSGLAccount.AccountInfo", u"ORVClassLookUp.SingleBillLookUp",
          u"ORVClassTpl.clsdoAction", u"ORVListServer.clsListServer", u"ORVPASetting.PAview", u"ORVResLoader.Loader",
          u"ORVFrmRes.FrmResLoader", u"ORVPropsMgr.ShareProps"})
        EXPECT_TRUE(make(progId)) << utf8(progId);
    EXPECT_EQ(erp().progIds().size(), 19u);
    EXPECT_EQ(erp().shared(u"ORVEBCGLView.GLView"), erp().shared(u"orvebcglview.glview"));
    EXPECT_NE(make(u"ORVEBCGLView.GLView"), make(u"ORVEBCGLView.GLView"));
    try {
        make(u"ORVMClass.Unknown");
        ADD_FAILURE() << "an unknown component was created";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), automation::errorNumber::cannotCreateObject);
    }
}

TEST_F(HostServices, TheServersClockStandsWhereItWasSet) {
    const auto rows =
        recordset(automation::call(make(u"ORVEBCGLView.GLData"), u"getanyrecordset", u"Select getdate() "));
    EXPECT_DOUBLE_EQ(automation::toDate(rows.field(0)).days, leapDay);
}

TEST_F(HostServices, TheCurrentUserIsAUserOfTheDatabase) {
    const std::u16string props =
        toText(automation::call(make(u"ORVPropsMgr.ShareProps"), u"GetProperty", u"PropsString"));
    EXPECT_EQ(utf8(props), "UserID=1;UserName=Admin;Language=CHS;ItemNaming=物料");
    EXPECT_EQ(utf8(automation::call(make(u"ORVPropsMgr.ShareProps"), u"GetProperty", u"Other")), "");
}

// 45323 is 1 February 2024, 45292 the first of January.
TEST_F(HostServices, TheLedgerHasAPeriodOfItsOwn) {
    EXPECT_EQ(periodOf(erp(), u"GetCurPeriod"), "2024 2 45323 45351");
    EXPECT_EQ(periodOf(erp(), u"GetGLCurPeriod"), "2024 1 45292 45322");
}

TEST_F(HostServices, TheWageClassIsThatOfTheCurrentDocument) {
    struct {
        std::int32_t classType;
        std::int32_t wageClass;
    } const cases[] = {{1000901, 1}, {1000902, 2}, {1000201, 0}};
    for (const auto& expected : cases) {
        erp().dataService(expected.classType);
        EXPECT_EQ(toInt32(automation::call(make(u"ORVPASetting.PAview"), u"GetClsIDInfo")), expected.wageClass)
            << expected.classType;
    }
}

TEST_F(HostServices, AccountsAreFoundByNumberAndGuardedByUser) {
    const ObjectRef accounts = make(u"ORVEBSGLAccount.AccountInfo");
    const auto idOf = [&](const char16_t* number) {
        return toInt32(
            automation::call(accounts, u"ExistenceCheck", number, Missing{}, Missing{}, Missing{}, erp().props()));
    };
    const auto mayUse = [&](std::int32_t account, const char16_t* props) {
        return automation::toBoolean(automation::call(accounts, u"HaveRightCheck", account, props));
    };
    EXPECT_GT(idOf(u"1002"), 0);
    EXPECT_NE(idOf(u"1001"), idOf(u"1002"));
    EXPECT_EQ(idOf(u"4711"), 0);
    EXPECT_EQ(idOf(u""), 0);
    EXPECT_TRUE(mayUse(idOf(u"1002"), u"UserID=1"));
    EXPECT_FALSE(mayUse(idOf(u"1002"), u"UserID=2;UserName=张敏"));
    EXPECT_TRUE(mayUse(idOf(u"1001"), u"UserID=2"));
    EXPECT_FALSE(mayUse(4711, u"UserID=1")) << "nobody may use an account that is not there";
}

struct LookUpCase {
    const char16_t* member;
    std::vector<Value> arguments;
    const char16_t* number;
    const char16_t* column;
    const char* expected;
};

TEST_F(HostServices, LookUpDialogsChooseTheQueuedRecord) {
    const ObjectRef view = make(u"ORVEBCGLView.GLView");
    const Value options = automation::makeDictionary().object();
    const LookUpCase cases[] = {
        {u"ItemLookUp", {std::int32_t{2}, u"", u"", options}, u"G000001", u"FItemID", "1"},
        {u"ItemLookUp", {std::int32_t{14}, u"", u"", options}, u"张敏", u"FUserID", "2"},
        {u"UnitLookup", {u"", u"1"}, u"0102", u"FName", "箱"},
        {u"CurrencyLookup", {u""}, u"USD", u"FName", "美元"},
        {u"SettTypeLookup", {u""}, u"JF02", u"FName", "电汇"},
        {u"AccountLookup", {options, u"1", u""}, u"1002", u"FGroupID", "101"},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(utf8(expected.member) + " " + utf8(expected.number));
        erp().queueLookUp(expected.number);
        std::vector<Argument> arguments(expected.arguments.begin(), expected.arguments.end());
        automation::callMember(view, expected.member, automation::InvokeKind::method, arguments);
        ASSERT_TRUE(automation::toBoolean(get(view, u"ReturnOK")));
        const ObjectRef chosen = automation::toObject(get(view, u"ReturnObject"));
        EXPECT_EQ(utf8(get(chosen, u"Properties", expected.column)), expected.expected);
        EXPECT_EQ(utf8(get(chosen, u"Properties", u"FNoSuchColumn")), "");
    }
}

TEST_F(HostServices, AuxiliaryDataAreThoseOfTheirType) {
    const ObjectRef view = make(u"ORVEBCGLView.GLView");
    const ResultSet region =
        erp().database().query(u"SELECT FNumber, FName FROM t_AuxData WHERE FTypeID=20 ORDER BY FItemID");
    const std::u16string number = toText(region.rows.at(0).at(0));
    erp().queueLookUp(number);
    automation::call(view, u"SubMesLookup", std::int32_t{20}, u"");
    EXPECT_EQ(utf8(get(automation::toObject(get(view, u"ReturnObject")), u"Properties", u"FName")),
              utf8(region.rows[0][1]));
    erp().queueLookUp(u"no such number");
    automation::call(view, u"SubMesLookup", std::int32_t{20}, u"");
    EXPECT_FALSE(automation::toBoolean(get(view, u"ReturnOK")));
}

TEST_F(HostServices, ACancelledDialogLeavesNoChoice) {
    const ObjectRef view = make(u"ORVEBCGLView.GLView");
    erp().queueLookUp(u"USD");
    automation::call(view, u"CurrencyLookup", u"");
    ASSERT_TRUE(automation::toBoolean(get(view, u"ReturnOK")));
    erp().queueLookUpCancel();
    const Dictionary given = automation::makeDictionary();
    given.set(u"FName", u"自定");
    erp().queueLookUp(given);
    automation::call(view, u"CurrencyLookup", u"");
    EXPECT_FALSE(automation::toBoolean(get(view, u"ReturnOK"))) << "the choice before does not stay";
    EXPECT_FALSE(automation::toObjectOrNothing(get(view, u"ReturnObject")));
    automation::call(view, u"CurrencyLookup", u"");
    EXPECT_EQ(utf8(get(automation::toObject(get(view, u"ReturnObject")), u"Properties", u"FName")), "自定");
    automation::call(view, u"CurrencyLookup", u"");
    EXPECT_FALSE(automation::toBoolean(get(view, u"ReturnOK"))) << "with no answer left a dialog is cancelled";
}

TEST_F(HostServices, BillsAreChosenByNumber) {
    const ListResult first = erp().list(1000301, u"", u"t_SO_Delivery.FBillNo  ASC ", u"", 1);
    const ObjectRef dialog = make(u"ORVClassLookUp.SingleBillLookUp");
    let(dialog, u"ClassTypeID", std::int32_t{1000301});
    let(dialog, u"Filter", u"FStatus=1");
    let(dialog, u"ShowType", std::int32_t{0});
    erp().queueLookUp(first.firstKeys.at(0));
    automation::call(dialog, u"Show");
    const ObjectRef chosen = automation::toObject(get(dialog, u"BillTableDataChoose"));
    EXPECT_EQ(utf8(get(chosen, u"Properties", u"FNumber")), utf8(first.firstKeys[0]));
    automation::call(dialog, u"Show");
    EXPECT_FALSE(automation::toObjectOrNothing(get(dialog, u"BillTableDataChoose")));
}

TEST_F(HostServices, TheBillInterfaceAnswersWithTheFieldsFilter) {
    const ObjectRef action = make(u"ORVClassTpl.clsdoAction");
    let(action, u"m_CurRow", std::int32_t{-1});
    let(action, u"BillInterface", ObjectRef());
    EXPECT_EQ(toInt32(get(action, u"m_CurRow")), -1);
    const Dictionary field = automation::makeDictionary();
    Value filter = u"before";
    automation::call(action, u"GetItemFilter", Argument::byReference(filter), field.object());
    EXPECT_EQ(utf8(filter), "");
    field.set(u"FFilter", u"FDetail=1");
    automation::call(action, u"GetItemFilter", Argument::byReference(filter), field.object());
    EXPECT_EQ(utf8(filter), "FDetail=1");
}

TEST_F(HostServices, CallsAreRecordedWithTheirArguments) {
    const ObjectRef view = make(u"ORVEBCGLView.GLView");
    const Dictionary options = automation::makeDictionary();
    options.set(u"Search", u"FDeleted=0");
    options.set(u"Nested", automation::makeDictionary().object());
    std::weak_ptr<automation::Object> alive = options.object();
    {
        const Dictionary passed = options.cloneAll();
        alive = passed.object();
        automation::call(view, u"itemlookup", std::int32_t{1}, u"a", u"b", passed.object());
    }
    EXPECT_TRUE(alive.expired()) << "a recorded call keeps no object alive";
    ASSERT_EQ(erp().calls().size(), 2u);
    EXPECT_EQ(utf8(erp().calls()[0].progId), "ORVEBCGLView.GLView");
    EXPECT_EQ(utf8(erp().calls()[0].member), "") << "the creation";
    const RecordedCall& call = erp().calls()[1];
    EXPECT_EQ(utf8(call.member), "ItemLookUp") << "as the component spells it";
    ASSERT_EQ(call.arguments.size(), 4u);
    EXPECT_EQ(toInt32(call.arguments[0]), 1);
    EXPECT_EQ(utf8(record(call.arguments[3]).get(u"Search")), "FDeleted=0");
    EXPECT_EQ(utf8(record(call.arguments[3]).get(u"Nested")), "(Dictionary)");
}

TEST_F(HostServices, OrderedFailuresHitTheNextCallOnce) {
    erp().failNext(u"ORVEBCGLView.GLData", u"GetAnyRecordset", static_cast<std::int32_t>(0x80044010), u"denied");
    erp().failNext(u"ORVMClass.ClassInfo", u"", 429, u"not registered");
    const ObjectRef data = make(u"ORVEBCGLView.GLData");
    try {
        automation::call(data, u"getanyrecordset", u"Select getdate() ");
        ADD_FAILURE() << "the call did not fail";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x80044010));
        EXPECT_EQ(utf8(error.source()), "ORVEBCGLView.GLData");
        EXPECT_EQ(utf8(error.description()), "denied");
    }
    EXPECT_NO_THROW(automation::call(data, u"getanyrecordset", u"Select getdate() "));
    EXPECT_THROW(make(u"ORVMClass.ClassInfo"), AutomationError);
    EXPECT_NO_THROW(make(u"ORVMClass.ClassInfo"));
}

TEST_F(HostServices, AFailedSharedCreationIsTriedAgain) {
    const auto host = describe("{}");
    host->failNext(u"ORVResLoader.Loader", u"", 429, u"not registered");
    EXPECT_THROW(host->shared(u"ORVResLoader.Loader"), AutomationError);
    EXPECT_TRUE(host->shared(u"ORVResLoader.Loader"));
}

TEST_F(HostServices, MembersAndArgumentsAreChecked) {
    const ObjectRef data = make(u"ORVEBCGLView.GLData");
    const auto errorOf = [](const std::function<void()>& action) {
        try {
            action();
        } catch (const AutomationError& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(errorOf([&] { automation::call(data, u"GetRecords", u""); }), automation::errorNumber::memberNotFound);
    EXPECT_EQ(errorOf([&] { automation::call(data, u"getanyrecordset"); }),
              automation::errorNumber::wrongArgumentCount);
    EXPECT_EQ(errorOf([&] { automation::call(data, u"getanyrecordset", u"", u""); }),
              automation::errorNumber::wrongArgumentCount);
    EXPECT_EQ(errorOf([&] { let(data, u"getanyrecordset", u""); }), automation::errorNumber::memberNotFound);
    const ObjectRef service = erp().dataService(1000201);
    EXPECT_EQ(errorOf([&] { let(service, u"SelectList", u""); }), automation::errorNumber::memberNotFound);
}

TEST_F(HostServices, ListsJoinWhatTheTextsNameAndCountBills) {
    const std::u16string returns = u"t_SO_DeliveryEntry1.FQty<0";
    const ListResult bills = erp().list(1000301, u"", u"", u"", 3);
    const ListResult entries =
        erp().list(1000301, u"", u"t_SO_Delivery.FBillNo  DESC ", u"t_SO_DeliveryEntry1.FQty  ASC ", 3);
    EXPECT_EQ(bills.rows, bills.bills);
    EXPECT_GT(entries.rows, entries.bills) << "a bill has several entries";
    EXPECT_EQ(entries.bills, bills.bills) << "a bill without entries is listed too";
    ASSERT_EQ(entries.firstKeys.size(), 3u);
    EXPECT_GT(entries.firstKeys[0], entries.firstKeys[1]) << "sorted downwards, each bill once";
    EXPECT_LT(erp().list(1000301, returns, u"", u"", 0).bills, bills.bills);
    EXPECT_EQ(bills.sql.find(u"t_SO_DeliveryEntry"), std::u16string::npos) << "nothing is joined without need";
    EXPECT_THROW(erp().list(1000301, u"t_SO_Delivery.FNoSuchColumn=1", u"", u"", 0), AutomationError);
    EXPECT_THROW(erp().list(4711, u"", u"", u"", 0), AutomationError);
}

} // namespace
} // namespace orv::erp
