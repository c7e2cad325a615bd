#include "windows/com/TypeLibrary.h"

#include "windows/com/Errors.h"
#include "windows/com/Handles.h"
#include "windows/com/Module.h"

namespace orv::windows {

HRESULT loadTypeInfo(REFGUID id, ComPtr<ITypeInfo>& info) noexcept {
    return guarded([&]() -> HRESULT {
        ComPtr<ITypeLib> library;
        const HRESULT loaded = LoadTypeLibEx(asWide(module::path()), REGKIND_NONE, library.put());
        return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(id, info.put());
    });
}

} // namespace orv::windows
