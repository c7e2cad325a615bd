#pragma once

#include <unknwn.h>

#include <utility>

namespace orv::windows {

/// A counted reference to a COM object. Move it or copy it; the `&` operator is not overloaded: see `put`.
template <class T>
class ComPtr {
  public:
    ComPtr() noexcept = default;
    ComPtr(std::nullptr_t) noexcept {}
    ComPtr(const ComPtr& other) noexcept : pointer_(other.pointer_) { addRef(); }
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPtr() {
        if (pointer_)
            pointer_->Release();
    }

    /// Takes over a reference that the caller owns.
    static ComPtr attach(T* owned) noexcept {
        ComPtr taken;
        taken.pointer_ = owned;
        return taken;
    }
    /// Adds a reference of its own.
    static ComPtr copyFrom(T* borrowed) noexcept {
        ComPtr shared;
        shared.pointer_ = borrowed;
        shared.addRef();
        return shared;
    }

    T* get() const noexcept { return pointer_; }
    T* operator->() const noexcept { return pointer_; }
    T& operator*() const noexcept { return *pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    /// Where a call may put a new reference; what was held is released first.
    T** put() noexcept {
        *this = nullptr;
        return &pointer_;
    }
    void** putVoid() noexcept { return reinterpret_cast<void**>(put()); }
    /// Gives the reference away.
    [[nodiscard]] T* detach() noexcept { return std::exchange(pointer_, nullptr); }

    /// Asks the object for another interface.
    template <class U>
    HRESULT as(ComPtr<U>& other) const noexcept {
        return pointer_ ? pointer_->QueryInterface(__uuidof(U), other.putVoid()) : E_POINTER;
    }

    friend bool operator==(const ComPtr& a, const ComPtr& b) noexcept { return a.pointer_ == b.pointer_; }

  private:
    void addRef() noexcept {
        if (pointer_)
            pointer_->AddRef();
    }
    T* pointer_ = nullptr;
};

} // namespace orv::windows
