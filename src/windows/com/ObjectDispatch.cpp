#include "windows/com/ObjectDispatch.h"

#include "automation/AutomationError.h"
#include "windows/com/Errors.h"
#include "windows/com/InvokeCall.h"
#include "windows/com/ValueConversion.h"

namespace orv::windows {

using automation::Argument;
using automation::InvokeKind;
using automation::Value;

namespace {

/// The arguments of a host's call in the core's order.
class HostArguments {
  public:
    explicit HostArguments(const DISPPARAMS& parameters) : parameters_(parameters) {
        values_.reserve(parameters.cArgs); // references to the values must hold
        before_.reserve(parameters.cArgs);
        arguments_.reserve(parameters.cArgs);
        for (UINT i = 0; i < parameters.cArgs; ++i) {
            values_.push_back(toValue(sent(i)));
            if (isReference(i)) {
                before_.push_back(values_.back());
                arguments_.push_back(Argument::byReference(values_.back()));
            } else {
                before_.emplace_back();
                arguments_.emplace_back(std::move(values_.back()));
            }
        }
    }

    automation::Arguments all() noexcept { return arguments_; }

    /// Hands changed by-reference arguments back; what did not change stays as the host has it.
    void writeBack() {
        for (UINT i = 0; i < parameters_.cArgs; ++i) {
            if (isReference(i) && values_[i] != before_[i])
                assignThrough(sent(i), toVariant(values_[i]));
        }
    }

  private:
    const VARIANT& sent(UINT i) const noexcept { return parameters_.rgvarg[parameters_.cArgs - 1 - i]; }
    bool isReference(UINT i) const noexcept { return (V_VT(&sent(i)) & VT_BYREF) != 0; }

    const DISPPARAMS& parameters_;
    std::vector<Value> values_;
    std::vector<Value> before_;
    std::vector<Argument> arguments_;
};

bool isWrite(WORD flags) noexcept {
    return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
}

InvokeKind kindOf(WORD flags) noexcept {
    if (isWrite(flags))
        return InvokeKind::let;
    return (flags & DISPATCH_METHOD) != 0 ? InvokeKind::method : InvokeKind::get;
}

} // namespace

ObjectDispatch::ObjectDispatch(automation::ObjectRef object) : object_(std::move(object)) {}

ObjectDispatch::~ObjectDispatch() {
    forgetWrapper(this, object_.get());
}

HRESULT ObjectDispatch::GetTypeInfoCount(UINT* count) noexcept {
    if (!count)
        return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT ObjectDispatch::GetTypeInfo(UINT, LCID, ITypeInfo** info) noexcept {
    if (!info)
        return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT ObjectDispatch::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept {
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0)
        return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    return guarded([&]() -> HRESULT {
        const std::u16string_view name = viewOfName(names[0]);
        if (name.empty())
            return DISP_E_UNKNOWNNAME;
        std::size_t position = 0;
        while (position < names_.size() && !automation::sameMember(names_[position], name))
            ++position;
        if (position == names_.size())
            names_.emplace_back(name);
        ids[0] = static_cast<DISPID>(position + 1);
        return count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    });
}

HRESULT ObjectDispatch::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* details, UINT*) noexcept {
    if (result)
        VariantInit(result);
    if (reserved != IID_NULL)
        return DISP_E_UNKNOWNINTERFACE;
    if (!parameters || !isComplete(*parameters))
        return E_INVALIDARG;
    const bool namesValue =
        parameters->cNamedArgs == 1 && isWrite(flags) && parameters->rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
    if (parameters->cNamedArgs > 0 && !namesValue)
        return DISP_E_NONAMEDARGS;
    if (id != DISPID_VALUE && (id < 1 || static_cast<std::size_t>(id) > names_.size()))
        return DISP_E_MEMBERNOTFOUND;

    // The object may let go of its wrapper while it runs, and names may be added.
    const ComPtr<IUnknown> alive = ComPtr<IUnknown>::copyFrom(identity());
    try {
        const std::u16string member = id == DISPID_VALUE ? std::u16string() : names_[static_cast<std::size_t>(id) - 1];
        HostArguments arguments(*parameters);
        Value value;
        try {
            value = object_->invoke(member, kindOf(flags), arguments.all());
        } catch (...) {
            arguments.writeBack();
            throw;
        }
        arguments.writeBack();
        if (result)
            *result = toVariant(value).release();
        return S_OK;
    } catch (...) {
        return reportToCaller(details);
    }
}

} // namespace orv::windows
