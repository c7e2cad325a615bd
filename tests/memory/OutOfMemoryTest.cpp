#include "automation/Text.h"
#include "faults/Sessions.h"
#include "memory/Allocations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <new>

// Memory runs out at one allocation of the control's after the other. The step that is hit ends with std::bad_alloc,
// which the shell hands on as E_OUTOFMEMORY, or does without; then the control works again.
namespace orv::memory {
namespace {

using automation::toUtf8;
using faults::Actor;
using faults::FaultyHost;
using faults::Session;
using faults::Step;

class OutOfMemory : public ::testing::TestWithParam<Session> {
  protected:
    static void SetUpTestSuite() { erp_ = faults::openSmallErp(); }
    static void TearDownTestSuite() { erp_.reset(); }

    /// Creates a control and plays the session on it; the n-th allocation fails. The number of allocations.
    static long play(long failAt) {
        FaultyHost host(erp_);
        Allocations& memory = allocations();
        memory = {0, failAt, false, &host.strike.inHost};
        std::unique_ptr<control::Filter> filter;
        bool hit = false;
        try {
            memory.armed = true;
            filter = std::make_unique<control::Filter>(host, host);
        } catch (const std::bad_alloc&) {
            hit = true;
        }
        for (const Step& step : GetParam().steps) {
            if (!filter)
                break;
            try {
                memory.armed = true;
                const std::u16string outcome = outcomeOf(step, *filter, host);
                memory.armed = false;
                if (step.actor != Actor::raiser || !hit) {
                    EXPECT_EQ(toUtf8(outcome), "") << step.name << ", allocation " << failAt;
                }
            } catch (const std::bad_alloc&) {
                EXPECT_FALSE(hit) << "failed twice";
                hit = true;
            }
            memory.armed = false;
        }
        memory.armed = false;
        const long count = memory.count;
        if (!filter)
            filter = std::make_unique<control::Filter>(host, host);
        EXPECT_EQ(faultSetUpAnew(*filter, host), "") << "after allocation " << failAt;
        memory.pausedBy = nullptr;
        return count;
    }

  private:
    static inline std::shared_ptr<erp::ErpHost> erp_;
};

TEST_P(OutOfMemory, EndsTheStepAndNothingElse) {
    const long last = play(0);
    EXPECT_GT(last, 1000);
    // Each of the first, where a control comes into being, then a sample over all of them; all in a full sweep.
    constexpr long each = 50;
    constexpr long samples = 250;
    const long stride = faults::isFullSweep() ? 1 : std::max(last / samples, 1L);
    long tried = 0;
    for (long at = 1; at <= last && !HasFailure(); at += at < each ? 1 : stride, ++tried)
        play(at);
    RecordProperty("tried", static_cast<int>(tried));
}

INSTANTIATE_TEST_SUITE_P(Sessions, OutOfMemory, ::testing::ValuesIn(faults::sessions()),
                         [](const auto& session) { return std::string(session.param.name); });

} // namespace
} // namespace orv::memory
