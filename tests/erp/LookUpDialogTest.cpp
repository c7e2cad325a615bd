#include "erp/host/LookUpDialog.h"
#include "HostTesting.h"
#include "automation/Records.h"

#include <gtest/gtest.h>

#include <algorithm>

// Look-ups that no answer waits for go to the host's dialog window.
namespace orv::erp {
namespace {

using namespace testing;
using automation::Dictionary;
using automation::get;
using automation::let;
using automation::ObjectRef;
using automation::Value;
using Positions = std::vector<std::size_t>;

/// A user who takes rows by their position, and keeps what he was shown.
class Clerk final : public LookUpDialog {
  public:
    Positions choose(const LookUpOffer& offer) override {
        offers.push_back(offer);
        return taken;
    }
    Positions taken;
    std::vector<LookUpOffer> offers;
};

class HostLookUpDialog : public ::testing::Test {
  protected:
    void SetUp() override { erp->setLookUpDialog(clerk); }
    std::string chosen(const char16_t* column) const {
        const ObjectRef record = automation::toObjectOrNothing(get(view, u"ReturnObject"));
        return record ? utf8(get(record, u"Properties", column)) : "nothing";
    }
    const LookUpOffer& offer() const { return clerk->offers.at(0); }

    std::shared_ptr<ErpHost> erp = openErp();
    std::shared_ptr<Clerk> clerk = std::make_shared<Clerk>();
    ObjectRef view = erp->create(u"ORVEBCGLView.GLView");
};

TEST_F(HostLookUpDialog, OffersTheRecordsOfTheClassAndTakesTheUsersChoice) {
    clerk->taken = {1};
    automation::call(view, u"CurrencyLookup", u"");
    EXPECT_EQ(utf8(offer().title), "币别");
    EXPECT_EQ(offer().columns,
              (std::vector<LookUpColumn>{{u"FNumber", u"代码"}, {u"FName", u"名称"}, {u"FExchangeRate", u"汇率"}}));
    EXPECT_EQ(offer().rows.size(), 3u);
    EXPECT_EQ(offer().rows[0], (std::vector<std::u16string>{u"HKD", u"港币", u"0.9075"})) << "in the order of numbers";
    EXPECT_FALSE(offer().isMultiple);
    EXPECT_EQ(chosen(u"FName"), "人民币");
    EXPECT_EQ(chosen(u"FItemID"), "1") << "columns that are not shown are there too";
}

TEST_F(HostLookUpDialog, ACancelledWindowLeavesNoChoice) {
    automation::call(view, u"CurrencyLookup", u"");
    EXPECT_EQ(clerk->offers.size(), 1u);
    EXPECT_EQ(chosen(u"FName"), "nothing");
}

TEST_F(HostLookUpDialog, AnAnswerThatWaitsComesFirst) {
    clerk->taken = {0};
    erp->queueLookUp(u"USD");
    automation::call(view, u"CurrencyLookup", u"");
    EXPECT_EQ(chosen(u"FName"), "美元");
    EXPECT_TRUE(clerk->offers.empty());
    automation::call(view, u"CurrencyLookup", u"");
    EXPECT_EQ(clerk->offers.size(), 1u);
}

TEST_F(HostLookUpDialog, FilterAndUnitGroupNarrowTheOffer) {
    automation::call(view, u"SettTypeLookup", u"FNumber='JF02'");
    automation::call(view, u"UnitLookup", u"", u"1");
    automation::call(view, u"UnitLookup", u"", u"");
    ASSERT_EQ(clerk->offers.size(), 3u);
    EXPECT_EQ(offer().rows, (std::vector<std::vector<std::u16string>>{{u"JF02", u"电汇"}}));
    EXPECT_GT(clerk->offers[1].rows.size(), 0u);
    EXPECT_LT(clerk->offers[1].rows.size(), clerk->offers[2].rows.size());
}

TEST_F(HostLookUpDialog, SeveralRecordsComeAsOneWithCommas) {
    const Dictionary options = automation::makeDictionary();
    options.set(u"MultiSlt", std::int32_t{1});
    clerk->taken = {0, 2};
    automation::call(view, u"ItemLookUp", std::int32_t{5}, u"", u"", options.object());
    EXPECT_TRUE(offer().isMultiple);
    EXPECT_EQ(chosen(u"FNumber"), "01,03");
    EXPECT_EQ(chosen(u"FName"), "成品仓,退货仓");
}

TEST_F(HostLookUpDialog, BillsAreShownByTheFirstColumnsOfTheirList) {
    clerk->taken = {0};
    const ObjectRef dialog = erp->create(u"ORVClassLookUp.SingleBillLookUp");
    let(dialog, u"ClassTypeID", std::int32_t{1000301});
    let(dialog, u"Filter", u"FStatus=1");
    automation::call(dialog, u"Show");
    EXPECT_EQ(utf8(offer().title), "销售出库单");
    const auto number = std::ranges::find(offer().columns, u"FBillNo", &LookUpColumn::name);
    ASSERT_NE(number, offer().columns.end());
    const std::u16string& first = offer().rows.at(0).at(static_cast<std::size_t>(number - offer().columns.begin()));
    const ObjectRef record = automation::toObject(get(dialog, u"BillTableDataChoose"));
    EXPECT_EQ(utf8(get(record, u"Properties", u"FNumber")), utf8(first));
    EXPECT_EQ(utf8(get(record, u"Properties", u"FBillNo")), utf8(first));
    EXPECT_EQ(offer().rows.size(), erp->list(1000301, u"FStatus=1", u"", u"", 0).bills);
}

TEST_F(HostLookUpDialog, SpeaksTheUsersLanguage) {
    erp->logOn(u"张敏", u"EN");
    automation::call(view, u"CurrencyLookup", u"");
    EXPECT_EQ(utf8(offer().title), "Currencies");
    EXPECT_EQ(utf8(offer().columns.at(0).caption), "Number");
    EXPECT_EQ(utf8(offer().language), "EN");
}

struct SearchCase {
    const char* name;
    const char16_t* search;
    Positions found;
};
void PrintTo(const SearchCase& search, std::ostream* out) {
    *out << search.name;
}

class LookUpSearch : public ::testing::TestWithParam<SearchCase> {};

TEST_P(LookUpSearch, LeavesTheRowsThatHaveEveryWord) {
    LookUpOffer offer;
    offer.rows = {{u"C001", u"Acme 贸易"}, {u"C002", u"东方贸易"}, {u"D001", u"ＡＣＭＥ"}};
    EXPECT_EQ(matchingRows(offer, GetParam().search), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(Texts, LookUpSearch,
                         ::testing::Values(SearchCase{"Nothing", u"", {0, 1, 2}},
                                           SearchCase{"Blanks", u"  ", {0, 1, 2}}, SearchCase{"Number", u"c00", {0, 1}},
                                           SearchCase{"Inside", u"贸易", {0, 1}},
                                           SearchCase{"WordsInSeveralColumns", u"贸 002", {1}},
                                           SearchCase{"LetterCaseAndWidth", u"acme", {0, 2}},
                                           SearchCase{"WideSearch", u"ｃ００１　ａ", {0}},
                                           SearchCase{"None", u"东方 001", {}}),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
} // namespace orv::erp
