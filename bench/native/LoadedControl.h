#pragma once

#include "bench/host/LargeHost.h"
#include "bench/native/PlainCondition.h"
#include "control/Filter.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace orv::bench {

/// A control on a host of many fields, as a list window has it: settings, data service, all pages, Initialize.
struct LoadedControl {
    /// A control on a host of its own. Throws std::runtime_error when the control refuses the host.
    explicit LoadedControl(std::int32_t fields);
    /// One of several controls on the same host.
    explicit LoadedControl(std::shared_ptr<LargeHost> host);

    /// Enters conditions from the first line on, as a user does.
    void enter(const std::vector<PlainCondition>& conditions);

    const std::shared_ptr<LargeHost> sharedHost;
    LargeHost& host = *sharedHost;
    SilentPrompts prompts;
    control::Filter filter{host, prompts};
};

} // namespace orv::bench
