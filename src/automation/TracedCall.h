#pragma once

#include "automation/Trace.h"
#include "automation/Views.h"

#include <array>
#include <memory>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>

// Entries of the control's own: what hosts call, and what users do.
namespace orv::automation {

template <class T>
Value traceValue(const T& value) {
    if constexpr (requires { value.object(); })
        return value.object();
    else
        return Value(value);
}

/// What `tracedMember` does while there is a trace in the process. Apart, so that members without one stay short.
template <class... Args, class Body>
[[gnu::noinline]] std::invoke_result_t<Body&> memberWithTraces(const std::shared_ptr<Trace>& trace,
                                                               std::u16string_view member, InvokeKind kind,
                                                               const std::tuple<Args&...>& arguments, Body& body) {
    const TraceScope scope(trace);
    if (!trace)
        return body();
    const auto listed = [&] {
        return std::apply(
            [](const auto&... each) { return std::array<Argument, sizeof...(Args)>{Argument(traceValue(each))...}; },
            arguments);
    };
    const auto running = trace; // the member may end the trace
    TraceEntry entry(*running, kind, nullptr, member, listed());
    try {
        if constexpr (std::is_void_v<std::invoke_result_t<Body&>>) {
            body();
            entry.ended();
        } else {
            auto result = body();
            entry.ended(traceValue(result), listed());
            return result;
        }
    } catch (const AutomationError& error) {
        entry.failed(error);
        throw;
    }
}

/// Runs a public member of the control: `body` does the work, `arguments` (made by std::tie) are the member's own. The
/// calls of the host that it makes go to `trace`, and so does the member itself. Without a trace the body is all that
/// runs.
template <class... Args, class Body>
std::invoke_result_t<Body&> tracedMember(const std::shared_ptr<Trace>& trace, std::u16string_view member,
                                         InvokeKind kind, const std::tuple<Args&...>& arguments, Body body) {
    if (!Trace::anyOpen()) [[likely]] // a trace of this control would be open
        return body();
    return memberWithTraces(trace, member, kind, arguments, body);
}

/// Runs what answers an event that the user raised, named as "cboClassType.click".
template <class Action>
void tracedEvent(const std::shared_ptr<Trace>& trace, std::u16string_view name, Action action) {
    if (!Trace::anyOpen())
        return action();
    const TraceScope scope(trace);
    if (!trace)
        return action();
    const auto running = trace;
    TraceEntry entry(*running, u"event", name);
    try {
        action();
        entry.ended();
    } catch (const AutomationError& error) {
        entry.failed(error);
        throw;
    }
}

} // namespace orv::automation
