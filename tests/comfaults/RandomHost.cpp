#include "RandomHost.h"

#include "windows/com/Handles.h"

#include <iterator>

namespace orv::windows::test {

namespace {

HRESULT STDAPICALLTYPE fillInLater(EXCEPINFO* details) {
    details->bstrDescription = SysAllocString(L"late");
    return S_OK;
}
HRESULT STDAPICALLTYPE cannotFillIn(EXCEPINFO*) {
    return E_OUTOFMEMORY;
}

// No name of a file: the control writes a trace where its settings say so.
constexpr wchar_t someText[] = L"1,2|*";
constexpr SCODE codes[] = {
    0, 1, E_FAIL, static_cast<SCODE>(0x800A0005), static_cast<SCODE>(0x800A0000), DISP_E_EXCEPTION, 0x7FFFFFFF};
constexpr HRESULT results[] = {E_FAIL,        E_UNEXPECTED,    E_NOTIMPL,           DISP_E_MEMBERNOTFOUND,
                               E_OUTOFMEMORY, DISP_E_OVERFLOW, DISP_E_TYPEMISMATCH, RPC_E_DISCONNECTED,
                               S_FALSE,       E_POINTER,       DISP_E_BADPARAMCOUNT};

} // namespace

HRESULT RandomHost::GetTypeInfoCount(UINT* count) noexcept {
    *count = 0;
    return S_OK;
}

HRESULT RandomHost::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    *info = nullptr;
    return below(2) == 0 ? S_OK : E_NOTIMPL; // a type that is promised and not given
}

HRESULT RandomHost::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID* ids) noexcept {
    ids[0] = static_cast<DISPID>(below(5));
    return below(12) == 0 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT RandomHost::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO* details,
                           UINT*) noexcept {
    ++calls_;
    if (below(10) == 0)
        return details ? fail(*details) : DISP_E_EXCEPTION;
    if (below(20) == 0)
        return results[below(std::size(results))];
    if (result)
        answer(*result);
    if (details && below(20) == 0)
        fail(*details); // details of a failure, and yet none
    return S_OK;
}

void RandomHost::answer(VARIANT& result) {
    VariantInit(&result);
    const std::size_t kind = below(12);
    switch (kind) {
    case 0:
        V_VT(&result) = VT_NULL;
        return;
    case 1:
        V_BSTR(&result) = below(3) == 0 ? nullptr : SysAllocString(someText);
        V_VT(&result) = VT_BSTR;
        return;
    case 2:
        V_BOOL(&result) = static_cast<VARIANT_BOOL>(below(3));
        V_VT(&result) = VT_BOOL;
        return;
    case 3:
        V_R8(&result) = 1.5;
        V_VT(&result) = VT_R8;
        return;
    case 4:
        V_VT(&result) = VT_DISPATCH; // no object
        return;
    case 5:
        V_VT(&result) = static_cast<VARTYPE>(below(2) == 0 ? VT_I4 | VT_BYREF : 77);
        return;
    case 6:
        V_ARRAY(&result) = SafeArrayCreateVector(VT_I4, 0, 3);
        V_VT(&result) = VT_ARRAY | VT_I4;
        return;
    case 7:
        return;
    default:
        if (kind < 10) {
            AddRef();
            V_DISPATCH(&result) = this;
            V_VT(&result) = VT_DISPATCH;
            return;
        }
        V_I4(&result) = static_cast<LONG>(below(4));
        V_VT(&result) = VT_I4;
    }
}

HRESULT RandomHost::fail(EXCEPINFO& details) {
    details = EXCEPINFO{};
    details.scode = codes[below(std::size(codes))];
    details.wCode = static_cast<WORD>(below(2) * 1001);
    if (below(2) == 0)
        details.bstrSource = SysAllocString(L"Host");
    if (below(3) == 0)
        details.bstrHelpFile = SysAllocString(L"help.chm");
    switch (below(4)) {
    case 0:
        details.pfnDeferredFillIn = fillInLater;
        break;
    case 1:
        details.pfnDeferredFillIn = cannotFillIn;
        break;
    case 2:
        details.bstrDescription = SysAllocString(L"wrong");
        break;
    default:
        break;
    }
    return DISP_E_EXCEPTION;
}

} // namespace orv::windows::test
