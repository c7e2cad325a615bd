#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "faults/Invariants.h"
#include "faults/Sessions.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>

// Any call that the control makes may run host code that calls the control again, or lets it go. The sessions are
// played over and over; the host strikes at the first call, the second, and so on through all of them.
namespace orv::faults {
namespace {

using automation::AutomationError;
using automation::toUtf8;
using control::Filter;

using Action = std::function<void(Filter&, FaultyHost&)>;

class Reentry : public ::testing::TestWithParam<Session> {
  protected:
    static void SetUpTestSuite() { erp_ = openSmallErp(); }
    static void TearDownTestSuite() { erp_.reset(); }
    static const std::shared_ptr<erp::ErpHost>& erp() { return erp_; }

    /// Plays the session on a control of its own, struck at one call. The number of calls.
    static int play(int at, const Action& action) {
        FaultyHost host(erp_);
        Filter filter(host, host);
        host.strike.calls = 0;
        host.strike.at = at;
        host.strike.action = [&] {
            try {
                action(filter, host);
            } catch (const AutomationError&) { // what goes wrong in it is the host's own business
            }
        };
        for (const Step& step : GetParam().steps) {
            const std::u16string outcome = outcomeOf(step, filter, host);
            if (step.actor != Actor::raiser) {
                EXPECT_EQ(toUtf8(outcome), "") << step.name << ", struck at call " << at;
            }
        }
        const int calls = host.strike.calls;
        EXPECT_EQ(faultAfterwards(filter, host), "") << "struck at call " << at << " " << toUtf8(host.strike.struck);
        return calls;
    }

  private:
    static inline std::shared_ptr<erp::ErpHost> erp_;
};

const Action actions[] = {
    [](Filter& filter, FaultyHost&) { filter.ClearMem(); },
    [](Filter& filter, FaultyHost& host) { filter.put_DataSrv(host.dataService(payments)); },
    [](Filter& filter, FaultyHost&) { filter.Initialize(u"1000201,1000202"); },
    [](Filter& filter, FaultyHost&) {
        filterText(filter);
        filter.InitHideColumns();
        filter.controls().vsFilter.userChoose(2, 1, 2);
        filter.controls().cmdDelAll.press();
        filter.get_m_Header();
    },
    [](Filter& filter, FaultyHost&) {
        auto& boxes = filter.controls().chkPage;
        boxes(boxes.upperBound()).userClick();
        filter.put_ShowScheme(true);
        filter.SaveScheme();
        filter.RefreshProfile(filter.get_dctProFileEntry());
    },
    [](Filter& filter, FaultyHost&) { // windows and pages of the control under the host's own window
        filter.put_ShowFilterStyle(1);
        filter.controls().cboClassType.setListIndex(filter.controls().cboClassType.count() - 1);
        filter.controls().tlbProject.userClick(u"TLBDEL");
        filter.controls().vsFilter.userKeyDown(ui::key::f7, 0);
        filter.put_dctControl({});
    },
};

TEST_P(Reentry, AnythingInsideAnyCall) {
    const int last = play(0, actions[0]);
    EXPECT_GT(last, 100) << "the session hardly calls the host";
    const int kinds = static_cast<int>(std::size(actions));
    for (int at = 1; at <= last && !HasFailure(); ++at) {
        for (int i = 0; i < (isFullSweep() ? kinds : 1); ++i)
            play(at, actions[isFullSweep() ? i : at % kinds]);
    }
}

/// The shell keeps a control alive for the length of a call: what is let go inside of it goes at its end.
TEST_P(Reentry, LetGoInsideAnyCall) {
    const int last = play(0, actions[0]);
    for (int at = 1; at <= last; at += isFullSweep() ? 1 : 5) {
        FaultyHost host(erp());
        auto filter = std::make_shared<Filter>(host, host);
        host.strike.calls = 0;
        host.strike.at = at;
        host.strike.action = [&filter] {
            filter->ClearMem();
            filter.reset();
        };
        for (const Step& step : GetParam().steps) {
            const std::shared_ptr<Filter> kept = filter;
            if (!kept)
                break;
            const std::u16string outcome = outcomeOf(step, *kept, host);
            if (step.actor != Actor::raiser) {
                ASSERT_EQ(toUtf8(outcome), "") << step.name << ", let go at call " << at;
            }
        }
        EXPECT_EQ(filter, nullptr) << "not let go at call " << at;
    }
}

/// A host's object that calls the control when it goes, in whatever state the control is then.
TEST_P(Reentry, ObjectsThatCallWhenTheyGo) {
    class LastWord final : public automation::Object {
      public:
        explicit LastWord(Filter& filter) : filter_(filter) {}
        ~LastWord() override {
            filterText(filter_);
            filter_.get_DataSrv();
            filter_.Initialize();
        }
        automation::Value invoke(std::u16string_view, automation::InvokeKind, automation::Arguments) override {
            return {};
        }

      private:
        Filter& filter_;
    };
    FaultyHost host(erp());
    Filter filter(host, host);
    for (const Step& step : GetParam().steps) {
        filter.put_ConditionExtHide(automation::Dictionary(std::make_shared<LastWord>(filter)));
        outcomeOf(step, filter, host);
        filter.put_dctControl(automation::Dictionary(std::make_shared<LastWord>(filter)));
        filter.put_dctControl({});
        try {
            filter.put_DataSrv(std::make_shared<LastWord>(filter));
        } catch (const AutomationError&) { // it has no tables
        }
        filter.put_DataSrv(host.dataService(receipts));
        EXPECT_EQ(brokenInvariant(filter), "") << step.name;
    }
    filter.ClearMem();
    EXPECT_EQ(faultAfterwards(filter, host), "");
}

INSTANTIATE_TEST_SUITE_P(Sessions, Reentry, ::testing::ValuesIn(sessions()),
                         [](const auto& session) { return std::string(session.param.name); });

} // namespace
} // namespace orv::faults
