#pragma once

#include "automation/AutomationError.h"

#include <windows.h>

#include <oleauto.h>

#include <concepts>
#include <type_traits>
#include <utility>

// Failures across the COM boundary. Run-time error n travels as 0x800A0000 + n; a component's own code as it is.
namespace orv::windows {

/// The result code of an error number.
HRESULT resultOfNumber(std::int32_t number) noexcept;
/// The error number that a failed call of a component stands for: 438, 450, 13, ... for the dispatch errors, n for
/// 0x800A0000 + n, the result code itself where there is no such number.
std::int32_t numberOfResult(HRESULT result) noexcept;

/// The error that a failed call left behind. `details` is what `Invoke` filled in, or null. Takes over the texts in it
/// and runs its deferred fill-in. `component` may have an IErrorInfo for the call; null when it has none.
automation::AutomationError errorOfCall(HRESULT result, EXCEPINFO* details, IUnknown* component);

/// To be called in a catch block: the result code of the exception, whose details go to the thread's IErrorInfo.
HRESULT reportToThread() noexcept;
/// To be called in a catch block: the same for a caller of `Invoke`; DISP_E_EXCEPTION, or E_OUTOFMEMORY.
HRESULT reportToCaller(EXCEPINFO* details) noexcept;
/// Moves the thread's IErrorInfo of a failed vtable call to the details of an `Invoke`.
HRESULT moveToCaller(HRESULT result, EXCEPINFO* details) noexcept;

/// Runs the body of a COM method; no exception leaves it. The body returns nothing or an HRESULT.
template <class Body>
HRESULT guarded(Body&& body) noexcept {
    try {
        if constexpr (std::same_as<std::invoke_result_t<Body>, HRESULT>) {
            return std::forward<Body>(body)();
        } else {
            std::forward<Body>(body)();
            return S_OK;
        }
    } catch (...) {
        return reportToThread();
    }
}

} // namespace orv::windows
