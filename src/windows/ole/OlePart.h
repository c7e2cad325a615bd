#pragma once

#include "windows/com/ComObject.h"
#include "windows/com/Errors.h"

#include <ocidl.h>

namespace orv::windows {

template <>
struct Extends<IOleInPlaceObject> {
    using type = IOleWindow;
};
template <>
struct Extends<IOleInPlaceActiveObject> {
    using type = IOleWindow;
};
template <>
struct Extends<IViewObject2> {
    using type = IViewObject;
};
template <>
struct Extends<IPersistStreamInit> {
    using type = IPersist;
};
template <>
struct Extends<IPersistPropertyBag> {
    using type = IPersist;
};

/// Base of one group of embedding interfaces. Its IUnknown is that of the control: a part is counted and lives with it.
template <class... Interfaces>
class OlePart : public Interfaces... {
  public:
    explicit OlePart(IUnknown& control) noexcept : control_(control) {}
    OlePart(const OlePart&) = delete;
    OlePart& operator=(const OlePart&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) noexcept override {
        return control_.QueryInterface(id, out);
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return control_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return control_.Release(); }

    /// The interface of that id, without a reference; null when the part has none.
    void* find(REFIID id) noexcept {
        void* found = nullptr;
        static_cast<void>((findOne<Interfaces>(id, found) || ...));
        return found;
    }

  protected:
    ~OlePart() = default;

    IUnknown& control() const noexcept { return control_; }

    /// Runs the body of a method with the control kept alive: the container may release it while it is called.
    template <class Body>
    HRESULT run(Body&& body) noexcept {
        const ComPtr<IUnknown> alive = ComPtr<IUnknown>::copyFrom(&control_);
        return guarded(std::forward<Body>(body));
    }

  private:
    template <class I>
    bool findOne(REFIID id, void*& found) noexcept {
        using Parent = typename Extends<I>::type;
        if (id != __uuidof(I) && (id != __uuidof(Parent) || __uuidof(Parent) == IID_IUnknown))
            return false;
        found = static_cast<I*>(this);
        return true;
    }

    IUnknown& control_;
};

} // namespace orv::windows
