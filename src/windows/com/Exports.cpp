#include "automation/Object.h"
#include "windows/com/Errors.h"
#include "windows/com/Handles.h"
#include "windows/com/Module.h"
#include "windows/com/Runtime.h"
#include "windows/com/Server.h"

#include <string_view>

// The entry points of an in-process server. Linked into every DLL that describes one (see Server.h).

using namespace orv::windows;

namespace {

Registration registrationOf(const Server& server) {
    Registration registration;
    for (const ServedClass& served : server.classes)
        registration.classes.push_back(served.registration);
    registration.typeLibrary = server.typeLibrary;
    registration.path = module::path();
    return registration;
}

HRESULT install(bool add, RegistrationScope scope) noexcept {
    return guarded([&]() -> HRESULT {
        const Registration registration = registrationOf(describeServer());
        return add ? registerServer(registration, scope) : unregisterServer(registration, scope);
    });
}

} // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID processEnds) {
    // Calls for threads stay on: the runtime in this DLL frees with them what it keeps for each thread.
    if (reason == DLL_PROCESS_ATTACH)
        module::setInstance(instance);
    else if (reason == DLL_PROCESS_DETACH && !processEnds)
        releaseRuntime(instance);
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID id, REFIID interfaceId, LPVOID* out) {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    return guarded([&]() -> HRESULT {
        for (ServedClass& served : describeServer().classes) {
            if (served.registration.id == id)
                return makeClassFactory(std::move(served.create))->QueryInterface(interfaceId, out);
        }
        return CLASS_E_CLASSNOTAVAILABLE;
    });
}

STDAPI DllCanUnloadNow() {
    return module::useCount() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return install(true, RegistrationScope::machine);
}

STDAPI DllUnregisterServer() {
    return install(false, RegistrationScope::machine);
}

/// `regsvr32 /n /i:user` registers for the user alone, without administrator rights.
STDAPI DllInstall(BOOL add, LPCWSTR commandLine) {
    const std::u16string_view scope = commandLine ? asUtf16(commandLine) : std::u16string_view();
    if (scope.empty())
        return install(add != FALSE, RegistrationScope::machine);
    if (!orv::automation::sameMember(scope, u"user"))
        return E_INVALIDARG;
    return install(add != FALSE, RegistrationScope::user);
}
