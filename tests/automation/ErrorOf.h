#pragma once

#include "automation/AutomationError.h"

#include <cstdint>

namespace orv::automation::tests {

/// The number of the error that an action raises; 0 when it raises none.
template <class Action>
std::int32_t errorOf(Action action) {
    try {
        action();
    } catch (const AutomationError& error) {
        return error.number();
    }
    return 0;
}

} // namespace orv::automation::tests
