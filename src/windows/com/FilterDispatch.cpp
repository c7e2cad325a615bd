#include "windows/com/Errors.h"
#include "windows/com/FilterMembers.h"
#include "windows/com/FilterObject.h"
#include "windows/com/TypeLibrary.h"

// The IDispatch half of the control: from names and ids to the methods of the dual interface.
namespace orv::windows {

namespace {

/// `Filter.m_Header(1)`: the member has no parameters, but its result is an object whose default member has.
HRESULT invokeOnResult(_Filter& filter, const FilterMember& getter, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                       EXCEPINFO* details, UINT* wrongArgument) noexcept {
    InvokeCall call;
    UniqueVariant object;
    call.result = &object.ref();
    if (const HRESULT outcome = getter.run(filter, call); FAILED(outcome))
        return moveToCaller(outcome, details);
    if (!V_DISPATCH(&object.get()))
        return DISP_E_BADPARAMCOUNT;
    return V_DISPATCH(&object.get())
        ->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, flags, parameters, result, details, wrongArgument);
}

const FilterMember* getterForIndex(DISPID id, WORD flags, UINT argumentCount) noexcept {
    const bool isWrite = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (argumentCount < (isWrite ? 2u : 1u) || (!isWrite && (flags & DISPATCH_PROPERTYGET) == 0))
        return nullptr;
    const FilterMember* getter = findMember(id, DISPATCH_PROPERTYGET);
    return getter && getter->givesObject ? getter : nullptr;
}

} // namespace

HRESULT FilterObject::GetTypeInfoCount(UINT* count) noexcept {
    if (!count)
        return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT FilterObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) noexcept {
    if (!info)
        return E_POINTER;
    *info = nullptr;
    if (index != 0)
        return DISP_E_BADINDEX;
    ComPtr<ITypeInfo> found;
    const HRESULT result = loadTypeInfo(__uuidof(_Filter), found);
    *info = found.detach();
    return result;
}

HRESULT FilterObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0)
        return E_INVALIDARG;
    const FilterMember* member = findMember(viewOfName(names[0]));
    ids[0] = member ? member->id : DISPID_UNKNOWN;
    HRESULT result = member ? S_OK : DISP_E_UNKNOWNNAME;
    for (UINT i = 1; i < count; ++i) {
        const std::u16string_view name = viewOfName(names[i]);
        ids[i] = DISPID_UNKNOWN;
        for (std::size_t position = 0; member && position < member->parameterCount; ++position) {
            if (automation::sameMember(member->parameterNames[position], name))
                ids[i] = static_cast<DISPID>(position);
        }
        if (ids[i] == DISPID_UNKNOWN)
            result = DISP_E_UNKNOWNNAME;
    }
    return result;
}

HRESULT FilterObject::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO* details, UINT* wrongArgument) noexcept {
    if (result)
        VariantInit(result);
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!parameters || !isComplete(*parameters))
        return E_INVALIDARG;
    if (const FilterMember* getter = getterForIndex(id, flags, parameters->cArgs))
        return invokeOnResult(*this, *getter, flags, parameters, result, details, wrongArgument);
    const FilterMember* member = findMember(id, flags);
    if (!member)
        return DISP_E_MEMBERNOTFOUND;

    InvokeCall call;
    call.result = result;
    const bool isWrite = member->kind == DISPATCH_PROPERTYPUT;
    HRESULT outcome = call.place(*parameters, member->parameterCount, member->requiredCount, isWrite);
    if (SUCCEEDED(outcome)) {
        outcome = member->run(*this, call);
        if (SUCCEEDED(outcome))
            return outcome;
    }
    switch (outcome) {
    case DISP_E_TYPEMISMATCH:
    case DISP_E_OVERFLOW:
    case DISP_E_BADVARTYPE:
    case DISP_E_PARAMNOTFOUND:
    case DISP_E_PARAMNOTOPTIONAL:
        if (wrongArgument)
            *wrongArgument = call.placeInList(call.wrong());
        return outcome;
    case DISP_E_BADPARAMCOUNT:
    case E_INVALIDARG:
    case E_POINTER:
    case E_OUTOFMEMORY:
        return outcome;
    default:
        return moveToCaller(outcome, details);
    }
}

} // namespace orv::windows
