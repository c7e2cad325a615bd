#include "ole/Automation.h"

#include <objbase.h>
#include <oleauto.h>

#include <algorithm>

namespace orv::ole {

namespace {

std::wstring systemText(HRESULT code) {
    wchar_t* text = nullptr;
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, static_cast<DWORD>(code), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring result(text ? text : L"", length);
    LocalFree(text);
    while (!result.empty() && (result.back() == L'\r' || result.back() == L'\n'))
        result.pop_back();
    return result;
}

std::string narrow(const std::wstring& text) {
    std::string result(static_cast<std::size_t>(WideCharToMultiByte(
                           CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr)),
                       '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), result.data(),
                        static_cast<int>(result.size()), nullptr, nullptr);
    return result;
}

std::wstring taken(BSTR text) {
    std::wstring result(text ? text : L"", SysStringLen(text));
    SysFreeString(text);
    return result;
}

[[noreturn]] void raise(EXCEPINFO& details) {
    if (details.pfnDeferredFillIn)
        details.pfnDeferredFillIn(&details);
    std::wstring source = taken(details.bstrSource);
    std::wstring description = taken(details.bstrDescription);
    SysFreeString(details.bstrHelpFile);
    // Either a result code or a plain number of the object's own.
    const HRESULT code = details.scode ? details.scode : static_cast<HRESULT>(0x800A0000u + details.wCode);
    throw Failure(code, std::move(source), std::move(description));
}

} // namespace

Failure::Failure(HRESULT code, std::wstring source, std::wstring description)
    : std::runtime_error(narrow(description)), code_(code), source_(std::move(source)),
      description_(description.empty() ? systemText(code) : std::move(description)) {}

long Failure::number() const noexcept {
    return HRESULT_FACILITY(code_) == FACILITY_CONTROL ? HRESULT_CODE(code_) : code_;
}

void check(HRESULT result, const wchar_t* what) {
    if (FAILED(result))
        throw Failure(result, what, {});
}

Object::Object(const _variant_t& value) {
    if (value.vt == VT_EMPTY || value.vt == VT_NULL)
        return;
    if (value.vt != VT_DISPATCH)
        throw Failure(DISP_E_TYPEMISMATCH, L"automation", {});
    object_ = value.pdispVal;
}

Object Object::create(const wchar_t* progId) {
    CLSID id{};
    check(CLSIDFromProgID(progId, &id), progId);
    Microsoft::WRL::ComPtr<IDispatch> made;
    check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                           reinterpret_cast<void**>(made.GetAddressOf())),
          progId);
    return Object(made.Get());
}

_variant_t Object::invoke(const wchar_t* member, WORD kind, std::vector<VARIANT> arguments) const {
    if (!object_)
        throw Failure(E_POINTER, member, {});
    // The object may be released while it is called.
    const Microsoft::WRL::ComPtr<IDispatch> object = object_;
    DISPID id = DISPID_UNKNOWN;
    auto* name = const_cast<wchar_t*>(member);
    check(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), member);
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{};
    parameters.rgvarg = arguments.data();
    parameters.cArgs = static_cast<UINT>(arguments.size());
    DISPID put = DISPID_PROPERTYPUT;
    const bool isWrite = kind == DISPATCH_PROPERTYPUT;
    if (isWrite) {
        parameters.rgdispidNamedArgs = &put;
        parameters.cNamedArgs = 1;
    }
    VARIANT result{};
    EXCEPINFO details{};
    UINT wrong = 0;
    const HRESULT called = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                          isWrite ? nullptr : &result, &details, &wrong);
    if (called == DISP_E_EXCEPTION)
        raise(details);
    check(called, member);
    return _variant_t(result, false);
}

VARIANT Object::argument(const Object& object) noexcept {
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = object.get();
    return value;
}

VARIANT Object::argument(long number) noexcept {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = number;
    return value;
}

VARIANT Object::argument(bool flag) noexcept {
    VARIANT value{};
    value.vt = VT_BOOL;
    value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
}

VARIANT Object::argument(const _bstr_t& text) noexcept {
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = const_cast<_bstr_t&>(text).GetBSTR();
    return value;
}

std::wstring Object::readText(const wchar_t* member) const {
    return textOf(read(member));
}

long Object::readNumber(const wchar_t* member) const {
    _variant_t value = read(member);
    check(VariantChangeType(&value, &value, 0, VT_I4), member);
    return value.lVal;
}

VARIANT byReference(_variant_t& variable) noexcept {
    VARIANT value{};
    value.vt = VT_BYREF | VT_VARIANT;
    value.pvarVal = &variable;
    return value;
}

std::wstring textOf(const _variant_t& value) {
    if (value.vt == VT_NULL || value.vt == VT_EMPTY)
        return {};
    _variant_t text;
    check(VariantChangeType(&text, const_cast<_variant_t*>(&value), 0, VT_BSTR), L"text");
    return {text.bstrVal ? text.bstrVal : L"", SysStringLen(text.bstrVal)};
}

} // namespace orv::ole
