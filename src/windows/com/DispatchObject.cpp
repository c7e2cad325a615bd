#include "windows/com/DispatchObject.h"

#include "automation/AutomationError.h"
#include "windows/com/CallArguments.h"
#include "windows/com/Errors.h"
#include "windows/com/ValueConversion.h"

#include <ocidl.h>

namespace orv::windows {

using automation::InvokeKind;
using automation::Value;

namespace {

struct CallOutcome {
    HRESULT result = S_OK;
    UniqueVariant value;
    EXCEPINFO details{};
};

/// What a component filled in for a failure that nobody will read.
void dropDetails(EXCEPINFO& details) noexcept {
    SysFreeString(details.bstrSource);
    SysFreeString(details.bstrDescription);
    SysFreeString(details.bstrHelpFile);
    details = EXCEPINFO{};
}

void send(IDispatch& target, DISPID id, WORD flags, CallArguments& arguments, CallOutcome& outcome) {
    dropDetails(outcome.details);
    DISPPARAMS parameters = arguments.parameters();
    DISPID newValue = DISPID_PROPERTYPUT;
    const bool isWrite = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    if (isWrite) {
        parameters.rgdispidNamedArgs = &newValue;
        parameters.cNamedArgs = 1;
    }
    outcome.result = target.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                   isWrite ? nullptr : outcome.value.put(), &outcome.details, nullptr);
}

bool isObject(const VARIANT& variant) noexcept {
    return V_VT(&variant) == VT_DISPATCH || V_VT(&variant) == VT_UNKNOWN;
}

WORD flagsOf(InvokeKind kind) noexcept {
    switch (kind) {
    case InvokeKind::let:
        return DISPATCH_PROPERTYPUT;
    case InvokeKind::set:
        return DISPATCH_PROPERTYPUTREF;
    case InvokeKind::get:
    case InvokeKind::method:
        break;
    }
    return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
}

std::u16string nameInTypeInformation(IDispatch& dispatch) {
    ComPtr<ITypeInfo> info;
    ComPtr<IProvideClassInfo> provider;
    if (FAILED(dispatch.QueryInterface(__uuidof(IProvideClassInfo), provider.putVoid())) ||
        FAILED(provider->GetClassInfo(info.put()))) {
        if (FAILED(dispatch.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put())) || !info)
            return {};
    }
    UniqueBstr name;
    if (FAILED(info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr)))
        return {};
    return std::u16string(name.view());
}

} // namespace

DispatchObject::DispatchObject(ComPtr<IDispatch> dispatch) : dispatch_(std::move(dispatch)) {}

DispatchObject::~DispatchObject() {
    forgetView(dispatch_.get());
}

DISPID DispatchObject::idOf(std::u16string_view member) {
    if (member.empty())
        return DISPID_VALUE;
    if (const auto known = ids_.find(member); known != ids_.end())
        return known->second;
    std::u16string name(member);
    auto* spelling = const_cast<wchar_t*>(asWide(name));
    DISPID id = DISPID_UNKNOWN;
    const HRESULT result = dispatch_->GetIDsOfNames(IID_NULL, &spelling, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(result))
        throw errorOfCall(result, nullptr, nullptr);
    ids_.emplace(std::move(name), id);
    return id;
}

Value DispatchObject::invoke(std::u16string_view member, InvokeKind kind, automation::Arguments arguments) {
    const DISPID id = idOf(member);
    CallArguments sent(arguments);
    const WORD flags = flagsOf(kind);
    CallOutcome outcome;
    send(*dispatch_, id, flags, sent, outcome);
    if (outcome.result == DISP_E_MEMBERNOTFOUND && kind == InvokeKind::let && !arguments.empty() &&
        isObject(sent.parameters().rgvarg[0]))
        send(*dispatch_, id, DISPATCH_PROPERTYPUTREF, sent, outcome);
    if (outcome.result == DISP_E_TYPEMISMATCH && sent.hasReferences()) {
        sent.referToContent();
        send(*dispatch_, id, flags, sent, outcome);
    }
    if (FAILED(outcome.result)) {
        const auto error = errorOfCall(outcome.result, &outcome.details, dispatch_.get());
        // A caller's variables show what a procedure did to them, also when it failed in the end.
        sent.writeBack();
        throw error;
    }
    dropDetails(outcome.details);
    sent.writeBack();
    return toValue(outcome.value.get());
}

std::u16string_view DispatchObject::typeName() const {
    if (typeName_.empty() && !askedForType_) {
        askedForType_ = true;
        typeName_ = nameInTypeInformation(*dispatch_);
    }
    return typeName_;
}

} // namespace orv::windows
