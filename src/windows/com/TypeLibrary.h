#pragma once

#include "windows/com/ComPtr.h"

#include <oaidl.h>

namespace orv::windows {

/// The type information of a GUID in the type library that the module carries.
HRESULT loadTypeInfo(REFGUID id, ComPtr<ITypeInfo>& info) noexcept;

} // namespace orv::windows
