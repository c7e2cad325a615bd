#include "windows/com/Wrappers.h"

#include "windows/com/DispatchObject.h"
#include "windows/com/ObjectDispatch.h"
#include "windows/com/SharedLock.h"

#include <memory>
#include <mutex>
#include <unordered_map>

namespace orv::windows {

namespace {

/// The wrappers that are alive, found from either side. Entries own nothing.
struct WrapperTable {
    SharedLock lock;
    /// What a dispatch pointer stands for: a view of a host's object, or the core object of one of our wrappers.
    std::unordered_map<IDispatch*, std::weak_ptr<automation::Object>> objects;
    std::unordered_map<const automation::Object*, ObjectDispatch*> wrappers;
};

WrapperTable& table() {
    static WrapperTable instance;
    return instance;
}

} // namespace

automation::ObjectRef wrap(IDispatch* dispatch) {
    if (!dispatch)
        return nullptr;
    WrapperTable& known = table();
    const std::lock_guard guard(known.lock);
    auto& entry = known.objects[dispatch];
    if (auto object = entry.lock())
        return object;
    auto object = std::make_shared<DispatchObject>(ComPtr<IDispatch>::copyFrom(dispatch));
    entry = object;
    return object;
}

ComPtr<IDispatch> expose(const automation::ObjectRef& object) {
    if (!object)
        return nullptr;
    if (const auto* hosts = dynamic_cast<const DispatchObject*>(object.get()))
        return hosts->dispatch();
    WrapperTable& known = table();
    const std::lock_guard guard(known.lock);
    ObjectDispatch*& entry = known.wrappers[object.get()];
    if (entry)
        return ComPtr<IDispatch>::copyFrom(entry);
    const ComPtr<ObjectDispatch> wrapper = makeComObject<ObjectDispatch>(object);
    known.objects[wrapper.get()] = object;
    entry = wrapper.get();
    return ComPtr<IDispatch>::copyFrom(entry);
}

void forgetView(IDispatch* dispatch) noexcept {
    WrapperTable& known = table();
    const std::lock_guard guard(known.lock);
    // Another thread may have made a new view of the same pointer meanwhile.
    if (const auto found = known.objects.find(dispatch); found != known.objects.end() && found->second.expired())
        known.objects.erase(found);
}

void forgetWrapper(IDispatch* wrapper, const automation::Object* object) noexcept {
    WrapperTable& known = table();
    const std::lock_guard guard(known.lock);
    known.objects.erase(wrapper);
    known.wrappers.erase(object);
}

} // namespace orv::windows
