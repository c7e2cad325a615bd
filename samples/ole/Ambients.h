#pragma once

#include <windows.h>

#include <oaidl.h>
#include <ocidl.h>

namespace orv::ole {

/// The ambient properties of a dialog in the system's colours and message font, for a control that the user works with.
///
/// `result` is cleared first. DISP_E_MEMBERNOTFOUND for what the container does not know.
HRESULT readAmbient(DISPID id, VARIANT* result) noexcept;

} // namespace orv::ole
