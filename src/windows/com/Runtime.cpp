#include "windows/com/Runtime.h"

// Both are the runtime's own, without a header: the end of the exception reserve, and the DLL's thread callbacks.
namespace __gnu_cxx {
void __freeres();
}
extern "C" const IMAGE_TLS_DIRECTORY _tls_used;

namespace orv::windows {

void releaseRuntime(HINSTANCE instance) noexcept {
    // The loader tells of the end of other threads, not of the one that stays on without the DLL.
    const auto* callback = reinterpret_cast<const PIMAGE_TLS_CALLBACK*>(_tls_used.AddressOfCallBacks);
    for (; callback != nullptr && *callback != nullptr; ++callback)
        (*callback)(instance, DLL_THREAD_DETACH, nullptr);
    __gnu_cxx::__freeres();
}

} // namespace orv::windows
