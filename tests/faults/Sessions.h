#pragma once

#include "control/Filter.h"
#include "faults/FaultyHost.h"

#include <functional>
#include <span>
#include <string>

namespace orv::faults {

/// Who does a step, which tells what may come of a failing host.
enum class Actor {
    user,   ///< an event of the control: nothing ever escapes
    caller, ///< a member that traps its failures: nothing escapes either
    raiser, ///< a member that passes the host's own error on
};

struct Step {
    const char* name;
    Actor actor;
    void (*run)(control::Filter&, FaultyHost&);
};

/// What a host program and its user do with a control, from the first call on; together the sessions make the control
/// call every component that it knows.
struct Session {
    const char* name;
    std::span<const Step> steps;
};
std::span<const Session> sessions();

/// Runs a step and says what came of it: "" when it ended, else the error's number and description.
std::u16string outcomeOf(const Step& step, control::Filter& filter, FaultyHost& host);

/// Whether every fault is to strike every call (the environment variable ORV_FULL_SWEEP), which takes minutes; else the
/// calls get the faults in turn.
bool isFullSweep();

/// What is wrong with a control right after a session, and then set up anew; "" if nothing.
std::string faultAfterwards(control::Filter& filter, FaultyHost& host);

/// Sets a control up anew after whatever happened and enters one condition. What is wrong with it then, "" if nothing.
std::string faultSetUpAnew(control::Filter& filter, FaultyHost& host);

} // namespace orv::faults
