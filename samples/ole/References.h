#pragma once

#include <unknwn.h>
#include <wrl/client.h>

#include <utility>

namespace orv::ole {

/// The reference count of a COM object that is made with `new`, owned by nobody but its references. The object begins
/// with one.
template <class... Interfaces>
class Counted : public Interfaces... {
  public:
    Counted() = default;
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

    ULONG STDMETHODCALLTYPE AddRef() noexcept override {
        return static_cast<ULONG>(InterlockedIncrement(&references_));
    }
    ULONG STDMETHODCALLTYPE Release() noexcept override {
        const LONG left = InterlockedDecrement(&references_);
        if (left == 0)
            delete this;
        return static_cast<ULONG>(left);
    }

  protected:
    virtual ~Counted() = default;
    /// Answers QueryInterface for an interface that the object implements.
    template <class Interface>
    HRESULT give(Interface* self, void** out) noexcept {
        *out = self;
        AddRef();
        return S_OK;
    }

  private:
    LONG references_ = 1;
};

/// A new object of a `Counted` class. (What `ComPtr::Attach` does with the count depends on the compiler's headers.)
template <class Class, class... Arguments>
Microsoft::WRL::ComPtr<Class> makeCounted(Arguments&&... arguments) {
    Microsoft::WRL::ComPtr<Class> made;
    *made.GetAddressOf() = new Class(std::forward<Arguments>(arguments)...);
    return made;
}

} // namespace orv::ole
