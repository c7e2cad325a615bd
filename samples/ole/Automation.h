#pragma once

#include <windows.h>

#include <comutil.h>
#include <oaidl.h>
#include <wrl/client.h>

#include <stdexcept>
#include <string>
#include <vector>

// Late-bound calls: what a host needs of an automation object without its headers or its type library.
namespace orv::ole {

/// A call that failed: the object's own error where it gave one, otherwise the system's words for the result code.
class Failure : public std::runtime_error {
  public:
    Failure(HRESULT code, std::wstring source, std::wstring description);
    HRESULT code() const noexcept { return code_; }
    /// The run-time error number as scripts see it; the result code itself for all others.
    long number() const noexcept;
    const std::wstring& source() const noexcept { return source_; }
    const std::wstring& description() const noexcept { return description_; }

  private:
    HRESULT code_;
    std::wstring source_;
    std::wstring description_;
};

/// Raises Failure unless the call went well.
void check(HRESULT result, const wchar_t* what);

/// An automation object; empty for Nothing. Members are named; every member may raise Failure. Copies share the object.
class Object {
  public:
    Object() = default;
    explicit Object(IDispatch* object) : object_(object) {}
    /// The object in a variant; raises Failure (type mismatch) when it holds none.
    explicit Object(const _variant_t& value);
    /// A new object of a registered class.
    static Object create(const wchar_t* progId);

    explicit operator bool() const noexcept { return object_ != nullptr; }
    IDispatch* get() const noexcept { return object_.Get(); }
    const Microsoft::WRL::ComPtr<IDispatch>& dispatch() const noexcept { return object_; }

    template <class... Arguments>
    _variant_t read(const wchar_t* member, const Arguments&... arguments) const {
        return invoke(member, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {argument(arguments)...});
    }
    template <class... Arguments>
    _variant_t call(const wchar_t* member, const Arguments&... arguments) const {
        return invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {argument(arguments)...});
    }
    template <class Value>
    void write(const wchar_t* member, const Value& value) const {
        invoke(member, DISPATCH_PROPERTYPUT, {argument(value)});
    }

    std::wstring readText(const wchar_t* member) const;
    long readNumber(const wchar_t* member) const;

  private:
    // Arguments as they cross: those of the caller stay the caller's, and by-reference ones are written back there.
    static VARIANT argument(const _variant_t& value) noexcept { return value; }
    static VARIANT argument(const VARIANT& value) noexcept { return value; }
    static VARIANT argument(const Object& object) noexcept;
    static VARIANT argument(long number) noexcept;
    static VARIANT argument(bool flag) noexcept;
    static VARIANT argument(const _bstr_t& text) noexcept;
    _variant_t invoke(const wchar_t* member, WORD kind, std::vector<VARIANT> arguments) const;

    Microsoft::WRL::ComPtr<IDispatch> object_;
};

/// A variable handed over by reference, as scripts do it; it must outlive the call.
VARIANT byReference(_variant_t& variable) noexcept;

/// Text of a value; "" for Null and Empty.
std::wstring textOf(const _variant_t& value);
inline _bstr_t toBstr(const std::wstring& text) {
    return _bstr_t(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())), false);
}

} // namespace orv::ole
