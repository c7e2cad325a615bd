// SampleHost.dll for clients without a manifest, such as scripts: regsvr32 SampleHost.dll, regsvr32 /u SampleHost.dll.
//
// A ProgID that somebody else has is left alone, so the components of a real ERP client are safe.
#include "Components.h"

namespace {

std::wstring idText(const Component& component) {
    wchar_t text[40] = L"";
    StringFromGUID2(component.id, text, 40);
    return text;
}

std::wstring read(const std::wstring& key) {
    wchar_t text[300] = L"";
    DWORD size = sizeof text;
    const LSTATUS found = RegGetValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &size);
    return found == ERROR_SUCCESS ? text : L"";
}

bool write(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    return RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, text.c_str(),
                           static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

std::wstring pathOfThisDll() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&pathOfThisDll), &module);
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(module, path.data(), MAX_PATH));
    return path;
}

} // namespace

STDAPI DllRegisterServer() {
    const std::wstring path = pathOfThisDll();
    bool isWritten = true;
    for (const Component& component : components()) {
        const std::wstring id = idText(component), name = component.progId;
        const std::wstring owner = read(name + L"\\CLSID");
        if (!owner.empty() && owner != id)
            continue;
        isWritten = write(L"CLSID\\" + id + L"\\InprocServer32", nullptr, path) &&
                    write(L"CLSID\\" + id + L"\\InprocServer32", L"ThreadingModel", L"Apartment") &&
                    write(name + L"\\CLSID", nullptr, id) && isWritten;
    }
    return isWritten ? S_OK : E_ACCESSDENIED;
}

STDAPI DllUnregisterServer() {
    for (const Component& component : components()) {
        const std::wstring id = idText(component), name = component.progId;
        if (read(name + L"\\CLSID") == id)
            RegDeleteTreeW(HKEY_CLASSES_ROOT, name.c_str());
        RegDeleteTreeW(HKEY_CLASSES_ROOT, (L"CLSID\\" + id).c_str());
    }
    return S_OK;
}
