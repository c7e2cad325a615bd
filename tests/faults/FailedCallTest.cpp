#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "faults/Sessions.h"

#include <gtest/gtest.h>

#include <limits>

// Every call into the host goes wrong in turn: it raises, or answers something that it should not. Whatever the call,
// nothing but the host's own error comes out, the control stays whole and works afterwards.
namespace orv::faults {
namespace {

using automation::AutomationError;
using automation::toUtf8;
using automation::Value;

class FailedCall : public ::testing::TestWithParam<Session> {
  protected:
    static void SetUpTestSuite() { erp_ = openSmallErp(); }
    static void TearDownTestSuite() { erp_.reset(); }

    /// Plays the session on a control of its own, armed by `arm`; calls `look` after each step. The number of calls.
    template <class Arm, class Look>
    static int play(const Session& session, Arm arm, Look look) {
        FaultyHost host(erp_);
        control::Filter filter(host, host);
        host.strike.calls = 0;
        arm(host.strike);
        for (const Step& step : session.steps) {
            const bool before = host.strike.struck.empty();
            const std::u16string outcome = outcomeOf(step, filter, host);
            const bool struckNow = before && !host.strike.struck.empty();
            look(step, outcome, struckNow, host);
        }
        const int calls = host.strike.calls;
        const std::string fault = faultAfterwards(filter, host);
        EXPECT_EQ(fault, "") << "struck at call " << toUtf8(host.strike.struck);
        return calls;
    }
    static int callsOf(const Session& session) {
        return play(
            session, [](Strike&) {},
            [](const Step& step, const std::u16string& outcome, bool, FaultyHost& host) {
                EXPECT_EQ(toUtf8(outcome), "") << step.name << " on a host without faults";
                host.messages.clear();
            });
    }

  private:
    static inline std::shared_ptr<erp::ErpHost> erp_;
};

TEST_P(FailedCall, ComesOutAsItIsOrNotAtAll) {
    const int last = callsOf(GetParam());
    EXPECT_GT(last, 100) << "the session hardly calls the host";
    for (int at = 1; at <= last; ++at) {
        play(
            GetParam(),
            [at](Strike& strike) {
                strike.at = at;
                strike.action = [] { throw AutomationError(4711, u"host", u"broken"); };
            },
            [at](const Step& step, const std::u16string& outcome, bool struckNow, FaultyHost& host) {
                SCOPED_TRACE(std::string(step.name) + ", call " + std::to_string(at) + " " +
                             toUtf8(host.strike.struck));
                if (step.actor != Actor::raiser) {
                    EXPECT_EQ(toUtf8(outcome), "");
                } else if (struckNow && !outcome.empty()) {
                    EXPECT_TRUE(outcome.ends_with(u"broken") && outcome.starts_with(u"4711")) << toUtf8(outcome);
                }
            });
        if (HasFailure())
            return; // one is enough to look at
    }
    RecordProperty("calls", last);
}

struct WrongAnswer {
    const char* name;
    Value value;
};

TEST_P(FailedCall, SurvivesWrongAnswers) {
    const WrongAnswer answers[] = {
        {"Empty", Value()},
        {"Null", automation::Null{}},
        {"Nothing", automation::ObjectRef()},
        {"a text", u"x"},
        {"minus one", std::int32_t{-1}},
        {"a large number", std::int32_t{70'000}},
        {"a number beyond 32 bits", 1e300},
        {"not a number", std::numeric_limits<double>::quiet_NaN()},
        {"a date", automation::Date{45351}},
        {"an error", automation::ErrorCode{-2147352572}},
    };
    const int kinds = static_cast<int>(std::size(answers));
    const int last = callsOf(GetParam());
    // One of the answers to each call, in turn; all of them to all calls in a full sweep.
    for (int at = 1; at <= last; ++at) {
        for (int i = 0; i < (isFullSweep() ? kinds : 1); ++i) {
            const WrongAnswer& answer = answers[isFullSweep() ? i : at % kinds];
            play(
                GetParam(),
                [&](Strike& strike) {
                    strike.at = at;
                    strike.spoiled = answer.value;
                },
                [&](const Step& step, const std::u16string& outcome, bool, FaultyHost& host) {
                    if (step.actor != Actor::raiser) {
                        EXPECT_EQ(toUtf8(outcome), "") << step.name << ": " << answer.name << " to call " << at << " "
                                                       << toUtf8(host.strike.struck);
                    }
                });
            if (HasFailure())
                return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Sessions, FailedCall, ::testing::ValuesIn(sessions()),
                         [](const auto& session) { return std::string(session.param.name); });

} // namespace
} // namespace orv::faults
