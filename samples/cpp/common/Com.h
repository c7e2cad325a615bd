#pragma once

#include <windows.h>
// Windows headers come first.
#include <oleauto.h>

#include <string>
#include <utility>

/// A counted reference to a COM object.
template <class T>
class ComPtr {
  public:
    ComPtr() = default;
    /// Counts a reference of its own.
    explicit ComPtr(T* object) : object_(object) {
        if (object_)
            object_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ComPtr& operator=(ComPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ComPtr() {
        if (object_)
            object_->Release();
    }
    /// Takes over the reference that a new object is born with.
    static ComPtr attach(T* object) {
        ComPtr taken;
        taken.object_ = object;
        return taken;
    }
    T* get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    /// For calls that give a reference away through an argument.
    T** put() {
        *this = ComPtr();
        return &object_;
    }
    void** putVoid() { return reinterpret_cast<void**>(put()); }

  private:
    T* object_ = nullptr;
};

/// An owned BSTR.
class Text {
  public:
    explicit Text(const std::wstring& text = {})
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text_); }
    BSTR get() const { return text_; }
    /// For arguments by reference.
    BSTR* address() { return &text_; }
    std::wstring string() const { return std::wstring(text_ ? text_ : L"", SysStringLen(text_)); }

  private:
    BSTR text_;
};

/// An owned VARIANT.
class Variant {
  public:
    Variant() { VariantInit(&value_); }
    Variant(LONG number) : Variant() {
        V_VT(&value_) = VT_I4;
        V_I4(&value_) = number;
    }
    Variant(bool truth) : Variant() {
        V_VT(&value_) = VT_BOOL;
        V_BOOL(&value_) = truth ? VARIANT_TRUE : VARIANT_FALSE;
    }
    Variant(const std::wstring& text) : Variant() {
        V_VT(&value_) = VT_BSTR;
        V_BSTR(&value_) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    Variant(const wchar_t* text) : Variant(std::wstring(text)) {}
    Variant(IDispatch* object) : Variant() {
        V_VT(&value_) = VT_DISPATCH;
        V_DISPATCH(&value_) = object;
        if (object)
            object->AddRef();
    }
    /// The days since the end of 1899, as a date.
    static Variant date(DATE days) {
        Variant made;
        V_VT(&made.value_) = VT_DATE;
        V_DATE(&made.value_) = days;
        return made;
    }
    /// A copy; what an argument by reference refers to.
    static Variant of(VARIANT& value) {
        Variant copy;
        VariantCopyInd(&copy.value_, &value);
        return copy;
    }
    Variant(const Variant& other) : Variant() { VariantCopy(&value_, &other.value_); }
    Variant(Variant&& other) noexcept : Variant() { std::swap(value_, other.value_); }
    Variant& operator=(Variant other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Variant() { VariantClear(&value_); }

    VARIANT* get() const { return &value_; }
    /// Hands the content over.
    VARIANT release() {
        VARIANT content = value_;
        VariantInit(&value_);
        return content;
    }
    std::wstring string() const {
        Variant text;
        if (FAILED(VariantChangeType(&text.value_, &value_, 0, VT_BSTR)))
            return {};
        return std::wstring(V_BSTR(&text.value_) ? V_BSTR(&text.value_) : L"", SysStringLen(V_BSTR(&text.value_)));
    }
    LONG number() const {
        Variant whole;
        return SUCCEEDED(VariantChangeType(&whole.value_, &value_, 0, VT_I4)) ? V_I4(&whole.value_) : 0;
    }
    /// Null when it is no object.
    IDispatch* object() const { return V_VT(&value_) == VT_DISPATCH ? V_DISPATCH(&value_) : nullptr; }

  private:
    mutable VARIANT value_; ///< the platform's functions that only read take it as changeable
};
