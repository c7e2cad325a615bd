#pragma once

#include "windows/com/ComPtr.h"
#include "windows/com/Module.h"

#include <tuple>
#include <utility>

namespace orv::windows {

/// The interface that `I` extends, which a client may ask for as well. IUnknown goes without saying.
template <class I>
struct Extends {
    using type = IUnknown;
};

/// Base of the COM objects here: reference count, interface map, no aggregation. Made by `makeComObject`.
///
/// The interfaces of the map are `Interfaces` and what they extend. The object counts as a use of the module while it
/// lives. Its final release happens where the last client lets go of it.
template <class... Interfaces>
class ComObject : public Interfaces... {
  public:
    ComObject() = default;
    ComObject(const ComObject&) = delete;
    ComObject& operator=(const ComObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) noexcept override {
        if (!out)
            return E_POINTER;
        *out = id == IID_IUnknown ? identity() : nullptr;
        if (!*out)
            static_cast<void>((find<Interfaces>(id, out) || ...));
        if (!*out)
            return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0) {
            // Code that runs in the destructor may take and drop references: they must not bring it here again.
            references_ = 1;
            delete this;
        }
        return static_cast<ULONG>(left);
    }

    /// The object's IUnknown, without a reference.
    IUnknown* identity() noexcept {
        using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;
        return static_cast<First*>(this);
    }

  protected:
    virtual ~ComObject() = default;

  private:
    template <class I>
    bool find(REFIID id, void** out) noexcept {
        using Parent = typename Extends<I>::type;
        if (id != __uuidof(I) && id != __uuidof(Parent))
            return false;
        *out = static_cast<I*>(this);
        return true;
    }

    ModuleUse use_;
    LONG references_ = 1;
};

template <class T, class... Args>
ComPtr<T> makeComObject(Args&&... args) {
    return ComPtr<T>::attach(new T(std::forward<Args>(args)...));
}

} // namespace orv::windows
