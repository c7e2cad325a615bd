#include "tour/Resolution.h"

#include "tour/Wait.h"

namespace orv::tour {

namespace {

constexpr const wchar_t* keyPath = L"Control Panel\\Desktop";
constexpr const wchar_t* valueName = L"LogPixels";

bool set(DWORD dpi) noexcept {
    return RegSetKeyValueW(HKEY_CURRENT_USER, keyPath, valueName, REG_DWORD, &dpi, sizeof dpi) == ERROR_SUCCESS;
}

} // namespace

Resolution::Resolution(DWORD dpi) {
    DWORD size = sizeof before_;
    RegGetValueW(HKEY_CURRENT_USER, keyPath, valueName, RRF_RT_REG_DWORD, nullptr, &before_, &size);
    if (!set(dpi))
        throw TourError("the resolution cannot be set");
}

Resolution::~Resolution() {
    set(before_);
}

void seeRealPixels() {
    using SetContext = BOOL(WINAPI*)(DPI_AWARENESS_CONTEXT);
    const auto setContext =
        reinterpret_cast<SetContext>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SetProcessDpiAwarenessContext"));
    // Systems that lack it have one resolution for all programs.
    if (!setContext || !setContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE))
        SetProcessDPIAware();
}

} // namespace orv::tour
