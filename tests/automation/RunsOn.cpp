#include "RunsOn.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace orv::automation::tests {

bool runsOnWine() {
#ifdef _WIN32
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
#else
    return false;
#endif
}

} // namespace orv::automation::tests
