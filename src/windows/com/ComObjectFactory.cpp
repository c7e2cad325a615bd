#include "windows/com/ComObjectFactory.h"

#include "automation/AutomationError.h"
#include "windows/com/ComPtr.h"
#include "windows/com/DispatchObject.h"
#include "windows/com/Errors.h"
#include "windows/com/Handles.h"
#include "windows/com/SharedLock.h"
#include "windows/com/Wrappers.h"

#include <objbase.h>

#include <map>
#include <mutex>
#include <string>

namespace orv::windows {

namespace {

/// Error 429 names the component that is missing: the bare wording leaves an administrator without a trace.
automation::AutomationError cannotCreate(std::u16string_view progId) {
    const auto number = automation::errorNumber::cannotCreateObject;
    return automation::AutomationError(number, automation::controlSource,
                                       automation::runtimeErrorText(number) + u": " + std::u16string(progId));
}

bool meansMissing(HRESULT result) noexcept {
    return numberOfResult(result) == automation::errorNumber::cannotCreateObject ||
           result == HRESULT_FROM_WIN32(ERROR_MOD_NOT_FOUND) || result == HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND) ||
           result == CO_E_DLLNOTFOUND || result == CO_E_APPNOTFOUND || result == E_NOINTERFACE;
}

} // namespace

struct ComObjectFactory::Pool {
    std::map<std::u16string, automation::ObjectRef, std::less<>> kept;
};

std::shared_ptr<ComObjectFactory::Pool> ComObjectFactory::poolOfApartment() {
    static SharedLock lock;
    static std::map<DWORD, std::weak_ptr<Pool>> pools;
    const std::lock_guard guard(lock);
    auto pool = pools[GetCurrentThreadId()].lock();
    if (!pool) {
        // Threads come and go: what they left is not kept.
        std::erase_if(pools, [](const auto& known) { return known.second.expired(); });
        pool = std::make_shared<Pool>();
        pools[GetCurrentThreadId()] = pool;
    }
    return pool;
}

ComObjectFactory::ComObjectFactory() : pool_(poolOfApartment()) {}

ComObjectFactory::~ComObjectFactory() = default;

automation::ObjectRef ComObjectFactory::create(std::u16string_view progId) {
    CLSID id;
    if (FAILED(CLSIDFromProgID(asWide(std::u16string(progId)), &id)))
        throw cannotCreate(progId);
    ComPtr<IDispatch> component;
    const HRESULT result = CoCreateInstance(id, nullptr, CLSCTX_SERVER, IID_IDispatch, component.putVoid());
    if (meansMissing(result))
        throw cannotCreate(progId);
    if (FAILED(result))
        throw errorOfCall(result, nullptr, nullptr);
    automation::ObjectRef object = wrap(component.get());
    if (auto* view = dynamic_cast<DispatchObject*>(object.get()))
        view->setTypeName(progId);
    return object;
}

automation::ObjectRef ComObjectFactory::shared(std::u16string_view progId) {
    if (const auto found = pool_->kept.find(progId); found != pool_->kept.end())
        return found->second;
    // The component may run a message loop while it starts: what another call kept meanwhile counts.
    automation::ObjectRef made = create(progId);
    return pool_->kept.try_emplace(std::u16string(progId), std::move(made)).first->second;
}

} // namespace orv::windows
