#pragma once

#include "windows/com/InvokeCall.h"

#include <ORVFilter.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace orv::windows {

/// One entry of the control's interface as late-bound callers reach it.
struct FilterMember {
    DISPID id;
    std::u16string_view name;
    WORD kind; ///< DISPATCH_METHOD, DISPATCH_PROPERTYGET or DISPATCH_PROPERTYPUT
    std::size_t parameterCount;
    std::size_t requiredCount;
    std::array<std::u16string_view, InvokeCall::mostParameters> parameterNames;
    bool givesObject; ///< the result is an object, whose default member takes arguments that the member has not
    HRESULT (*run)(_Filter&, InvokeCall&) noexcept;
};

/// The member of an id for the flags of a call: reads and methods by METHOD and PROPERTYGET, writes by PROPERTYPUT and
/// PROPERTYPUTREF. Null when there is none.
const FilterMember* findMember(DISPID id, WORD flags) noexcept;

/// Any entry of that name (names compare ignoring ASCII letter case), methods by their only one. Null when there is
/// none.
const FilterMember* findMember(std::u16string_view name) noexcept;

} // namespace orv::windows
