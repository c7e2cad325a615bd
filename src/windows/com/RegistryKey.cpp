#include "windows/com/RegistryKey.h"

#include "windows/com/Handles.h"

namespace orv::windows {

HRESULT RegistryKey::create(HKEY parent, const std::u16string& path) noexcept {
    RegistryKey opened;
    const LONG result = RegCreateKeyExW(parent, asWide(path), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                                        nullptr, &opened.key_, nullptr);
    *this = std::move(opened);
    return HRESULT_FROM_WIN32(static_cast<DWORD>(result));
}

HRESULT RegistryKey::open(HKEY parent, const std::u16string& path) noexcept {
    RegistryKey opened;
    const LONG result = RegOpenKeyExW(parent, asWide(path), 0, KEY_READ | KEY_WRITE, &opened.key_);
    *this = std::move(opened);
    return HRESULT_FROM_WIN32(static_cast<DWORD>(result));
}

HRESULT RegistryKey::setText(const std::u16string& name, const std::u16string& text) noexcept {
    const auto bytes = static_cast<DWORD>((text.size() + 1) * sizeof(char16_t));
    return HRESULT_FROM_WIN32(static_cast<DWORD>(
        RegSetValueExW(key_, asWide(name), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), bytes)));
}

bool RegistryKey::hasSubkeys() const noexcept {
    DWORD count = 0;
    RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                     nullptr);
    return count > 0;
}

bool RegistryKey::hasValues() const noexcept {
    DWORD count = 0;
    RegQueryInfoKeyW(key_, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr,
                     nullptr);
    return count > 0;
}

HRESULT deleteTree(HKEY parent, const std::u16string& path) noexcept {
    const LONG result = RegDeleteTreeW(parent, asWide(path));
    return result == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(result));
}

} // namespace orv::windows
