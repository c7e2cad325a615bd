#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "automation/Text.h"
#include "faults/Invariants.h"
#include "faults/Sessions.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

// What a user or a host is told when the k-th call of one action fails, for every k: a failed save is one that was not
// made, a filter is never part of the conditions, by-reference arguments change together or not at all.
namespace orv::faults {
namespace {

using automation::AutomationError;
using automation::Dictionary;
using automation::toUtf8;
using control::Filter;

class StatedResults : public ::testing::Test {
  protected:
    void SetUp() override {
        settings_ = erp_->defaultSettings();
        filter.put_dctControl(settings_);
        filter.put_DataSrv(host.dataService(receipts));
        ASSERT_TRUE(filter.Initialize());
        ASSERT_TRUE(enterOneCondition(filter, u"A"));
    }

    /// Runs `action` with the first call failing that it makes behind `begin()`, then the second, until it ends.
    void failEveryCall(const std::function<void()>& action, const std::function<void(bool raised)>& look) {
        for (int at = 1; at < 1000; ++at) {
            host.messages.clear();
            host.strike = Strike{};
            at_ = at;
            host.strike.action = [] { throw AutomationError(4711, u"host", u"broken"); };
            bool raised = false;
            try {
                action();
            } catch (const AutomationError& error) {
                raised = true;
                EXPECT_EQ(error.number(), 4711) << toUtf8(error.description());
            }
            host.strike.at = 0;
            const bool struck = !host.strike.struck.empty();
            SCOPED_TRACE("call " + std::to_string(at) + " " + toUtf8(host.strike.struck));
            look(raised);
            if (!struck || HasFailure())
                return;
        }
        FAIL() << "the action never ended";
    }
    void begin() {
        host.strike.calls = 0;
        host.strike.at = at_;
    }
    /// The identifiers of the stored schemes.
    std::vector<std::int32_t> stored() {
        const automation::Collection rows(automation::toObject(automation::call(
            erp_->create(u"ORVMProfile.classInfo"), u"GetProfileList", erp_->props(), std::int32_t{receipts})));
        std::vector<std::int32_t> ids;
        for (std::int32_t i = 1; i <= rows.count(); ++i)
            ids.push_back(automation::toInt32(rows.record(i).get(u"FSchemeID")));
        return ids;
    }
    void deleteStored() {
        for (const std::int32_t id : stored())
            automation::call(erp_->create(u"ORVMProfile.classUpdate"), u"DelProfile", erp_->props(), id);
    }

    std::shared_ptr<erp::ErpHost> erp_ = openSmallErp();
    FaultyHost host{erp_};
    Filter filter{host, host};

  private:
    Dictionary settings_;
    int at_ = 0;
};

TEST_F(StatedResults, ASaveIsReportedAsFailedWhenNothingWasSaved) {
    int saves = 0;
    failEveryCall(
        [&] {
            deleteStored();
            ASSERT_TRUE(filter.Initialize()); // an empty list: saving asks for a name
            host.schemeName = u"甲";
            begin();
            filter.controls().tlbProject.userClick(u"TLBSAVE");
        },
        [&](bool) {
            const bool saved = !stored().empty();
            const bool toldOfFailure = !host.messages.empty() && host.messages.back().ends_with(u"失败！");
            saves += saved ? 1 : 0;
            EXPECT_FALSE(saved && toldOfFailure) << toUtf8(host.messages.back());
        });
    EXPECT_GT(saves, 2) << "nothing failed behind a save";
}

TEST_F(StatedResults, AFilterIsNeverPartOfTheConditions) {
    ui::Spread& grid = filter.controls().vsFilter;
    grid.setComboSelection(8, 1, 0);
    grid.userChoose(2, 2, 4);
    grid.userType(4, 2, u"1001");
    const std::u16string all = filterText(filter);
    ASSERT_TRUE(all.starts_with(u" ( t.FNo= 'A'   AND")) << toUtf8(all);
    const Dictionary entry = filter.get_dctProFileEntry();
    failEveryCall(
        [&] {
            filter.put_DataSrv(host.dataService(receipts)); // nothing of the fields is known yet
            begin();
            filter.RefreshProfile(entry);
        },
        [&](bool) {
            const std::u16string text = filterText(filter);
            EXPECT_TRUE(text == all || text.starts_with(u"error ")) << toUtf8(text);
        });
    EXPECT_EQ(filterText(filter), all);
}

TEST_F(StatedResults, AConditionOfTheUsersIsWholeOrRefused) {
    ui::Spread& grid = filter.controls().vsFilter;
    int refused = 0;
    failEveryCall(
        [&] {
            filter.put_DataSrv(host.dataService(receipts)); // nothing of the fields is known yet
            ASSERT_TRUE(filter.Initialize());
            begin();
            grid.userChoose(2, 1, 2);
            grid.userChoose(4, 1, 1);
        },
        [&](bool) {
            const std::u16string text = filterText(filter);
            refused += text.starts_with(u"error ") ? 1 : 0;
            EXPECT_TRUE(text == u" ( t.FKind= 2 ) " || text.starts_with(u"error ")) << toUtf8(text);
        });
    EXPECT_GT(refused, 2);
    EXPECT_EQ(filterText(filter), u" ( t.FKind= 2 ) ");
}

TEST_F(StatedResults, ByReferenceArgumentsChangeTogetherOrNotAtAll) {
    failEveryCall(
        [&] {
            begin();
            std::int32_t year = -1, period = -1;
            automation::Date first{-1}, last{-1};
            std::u16string name = u"as it was";
            try {
                filter.GetCurPeriod(year, period, first, last);
                const automation::Recordset base(
                    automation::toObject(automation::get(filter.get_DataSrv(), u"rsAllBase")));
                filter.GetTakeBaseDataSQL(automation::makeDictionary(), base, u"1", name);
            } catch (const AutomationError&) {
                const bool all = year != -1 && period != -1 && first.days != -1 && last.days != -1;
                EXPECT_TRUE(all || (year == -1 && period == -1 && first.days == -1 && last.days == -1));
                EXPECT_EQ(name, u"as it was");
                throw;
            }
        },
        [](bool) {});
}

// A width is whatever the user types; it must not keep schemes from being saved.
TEST_F(StatedResults, AWidthBeyondAllReasonIsSavedAsTheGreatestOne) {
    ui::Spread& columns = filter.controls().vsHideColumn;
    ASSERT_TRUE(columns.userType(4, 1, u"-1e300"));
    const std::u16string widths = automation::toText(filter.get_dctProFileEntry().get(u"ColWidth"));
    EXPECT_TRUE(widths.starts_with(u"FNo=-2147483647|")) << toUtf8(widths);
    const Dictionary entry = automation::makeDictionary();
    entry.set(u"ColWidth", u"FNo=1e999|");
    entry.set(u"Relation", u"##<&t.FNo##<&99999999999##<&A##<&##<&##<&||");
    EXPECT_TRUE(filter.RefreshProfile(entry));
    EXPECT_EQ(toUtf8(filterText(filter)).substr(0, 7), "error 5") << "a comparison that no list has";
}

} // namespace
} // namespace orv::faults
