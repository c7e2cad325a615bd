#include "LateBound.h"

#include <new>

namespace {

LONG objects = 0;

} // namespace

LONG liveObjects() {
    return objects;
}

const Variant& Call::argument(std::size_t position) const {
    if (position >= arguments.size())
        throw Failure{DISP_E_PARAMNOTOPTIONAL, L"an argument is missing: " + member};
    return arguments[position];
}

LateBound::LateBound(std::vector<std::wstring> members) : members_(std::move(members)) {
    InterlockedIncrement(&objects);
}

LateBound::~LateBound() {
    InterlockedDecrement(&objects);
}

HRESULT LateBound::QueryInterface(REFIID id, void** out) {
    if (!out)
        return E_POINTER;
    *out = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch)
        return E_NOINTERFACE;
    *out = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG LateBound::AddRef() {
    return static_cast<ULONG>(InterlockedIncrement(&references_));
}

ULONG LateBound::Release() {
    const LONG left = InterlockedDecrement(&references_);
    if (left == 0)
        delete this;
    return static_cast<ULONG>(left);
}

HRESULT LateBound::GetTypeInfoCount(UINT* count) {
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT LateBound::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info)
        *info = nullptr;
    return E_NOTIMPL;
}

// The id of a member is its position from 1; 0 is the default member (DISPID_VALUE).
HRESULT LateBound::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0)
        return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    for (std::size_t i = 0; i < members_.size(); ++i) {
        if (lstrcmpiW(members_[i].c_str(), names[0]) == 0) {
            ids[0] = static_cast<DISPID>(i + 1);
            return count == 1 ? S_OK : DISP_E_UNKNOWNNAME; // arguments have no names here
        }
    }
    return DISP_E_UNKNOWNNAME;
}

HRESULT LateBound::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO* error, UINT*) {
    if (result)
        VariantInit(result);
    if (id < 0 || static_cast<std::size_t>(id) > members_.size())
        return DISP_E_MEMBERNOTFOUND;
    const ComPtr<IDispatch> alive(this); // the caller may drop the object inside of the call
    try {
        Call call{};
        call.member = id == DISPID_VALUE ? L"" : members_[static_cast<std::size_t>(id) - 1];
        call.isWrite = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        for (UINT i = parameters ? parameters->cArgs : 0; i > 0; --i) // they come in reverse
            call.arguments.push_back(Variant::of(parameters->rgvarg[i - 1]));
        Variant value = answer(call);
        if (result)
            *result = value.release();
        return S_OK;
    } catch (const Failure& failure) {
        if (!error)
            return failure.code;
        *error = EXCEPINFO{};
        error->scode = failure.code;
        error->bstrSource = SysAllocString(L"SampleHost");
        error->bstrDescription = SysAllocString(failure.description.c_str());
        return DISP_E_EXCEPTION;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}
