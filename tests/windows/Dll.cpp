#include "windows/Dll.h"

#include <stdexcept>

namespace orv::windows::test {

std::u16string Dll::pathOf(const std::u16string& file) {
    wchar_t own[MAX_PATH];
    const DWORD length = GetModuleFileNameW(nullptr, own, MAX_PATH);
    std::u16string folder(asUtf16(own), length);
    for (int level = 0; level < 2; ++level)
        folder.resize(folder.find_last_of(u'\\'));
    return folder + u"\\bin\\" + file;
}

Dll::Dll(const std::u16string& file) : module_(LoadLibraryW(asWide(pathOf(file)))) {
    if (!module_)
        throw std::runtime_error("the DLL cannot be loaded, error " + std::to_string(GetLastError()));
}

Dll::~Dll() {
    FreeLibrary(module_);
}

template <class Function>
Function Dll::entry(const char* name) const {
    const auto function = reinterpret_cast<Function>(GetProcAddress(module_, name));
    if (!function)
        throw std::runtime_error(std::string("no export ") + name);
    return function;
}

HRESULT Dll::getClassObject(REFCLSID id, REFIID interfaceId, void** out) const {
    return entry<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(id, interfaceId, out);
}

bool Dll::canUnload() const {
    return entry<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")() == S_OK;
}

HRESULT Dll::registerServer() const {
    return entry<HRESULT(STDAPICALLTYPE*)()>("DllRegisterServer")();
}

HRESULT Dll::unregisterServer() const {
    return entry<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")();
}

HRESULT Dll::install(bool add, const wchar_t* scope) const {
    return entry<HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>("DllInstall")(add, scope);
}

void Dll::createObject(REFCLSID id, REFIID interfaceId, void** out) const {
    ComPtr<IClassFactory> factory;
    if (FAILED(getClassObject(id, IID_IClassFactory, factory.putVoid())) ||
        FAILED(factory->CreateInstance(nullptr, interfaceId, out)))
        throw std::runtime_error("the object cannot be created");
}

} // namespace orv::windows::test
