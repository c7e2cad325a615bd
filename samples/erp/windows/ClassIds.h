#pragma once

#include <windows.h>

#include <span>
#include <string_view>

namespace orv::erp {

struct ClassId {
    std::u16string_view progId;
    CLSID id;
};

/// The classes of the sample host's DLL: one for each component of the host, and "OrvSample.Host".
std::span<const ClassId> classIds();
/// Null when the DLL has no class of that name.
const CLSID* findClassId(std::u16string_view progId);

} // namespace orv::erp
