#include "ole/SampleComponents.h"

#include "erp/windows/ClassIds.h"
#include "windows/com/Server.h"
#include "windows/com/Wrappers.h"

#include <stdexcept>

namespace orv::windows::test {

RegisteredHost::RegisteredHost() {
    if (FAILED(dll_.registerServer()))
        throw std::runtime_error("the sample host cannot be registered");
}

ServedHost::ServedHost(faults::FaultyHost& host) {
    for (const erp::ClassId& offered : erp::classIds()) {
        const auto factory = makeClassFactory([&host, progId = offered.progId] {
            const ComPtr<IDispatch> component = expose(host.create(progId));
            return ComPtr<IUnknown>::copyFrom(component.get());
        });
        DWORD cookie = 0;
        if (FAILED(CoRegisterClassObject(offered.id, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie)))
            throw std::runtime_error("a component cannot be served");
        classes_.push_back(cookie);
    }
}

ServedHost::~ServedHost() {
    for (const DWORD cookie : classes_)
        CoRevokeClassObject(cookie);
}

} // namespace orv::windows::test
