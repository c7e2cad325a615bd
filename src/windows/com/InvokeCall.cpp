#include "windows/com/InvokeCall.h"

namespace orv::windows {

bool isComplete(const DISPPARAMS& sent) noexcept {
    return (sent.cArgs == 0 || sent.rgvarg) && (sent.cNamedArgs == 0 || sent.rgdispidNamedArgs) &&
           sent.cNamedArgs <= sent.cArgs;
}

HRESULT InvokeCall::place(const DISPPARAMS& sent, std::size_t parameterCount, std::size_t requiredCount,
                          bool isWrite) noexcept {
    if (!isComplete(sent))
        return E_INVALIDARG;
    if (sent.cArgs > parameterCount)
        return DISP_E_BADPARAMCOUNT;
    const UINT byPosition = sent.cArgs - sent.cNamedArgs;
    for (UINT i = 0; i < byPosition; ++i) {
        places_[i] = sent.cArgs - 1 - i;
        arguments_[i] = &sent.rgvarg[places_[i]];
    }
    for (UINT i = 0; i < sent.cNamedArgs; ++i) {
        const DISPID name = sent.rgdispidNamedArgs[i];
        const bool isNewValue = name == DISPID_PROPERTYPUT && isWrite;
        const std::size_t position = isNewValue ? parameterCount - 1 : static_cast<std::size_t>(name);
        if ((!isNewValue && name < 0) || position >= parameterCount || arguments_[position])
            return DISP_E_PARAMNOTFOUND;
        places_[position] = i;
        arguments_[position] = &sent.rgvarg[i];
    }
    for (std::size_t i = 0; i < parameterCount; ++i) {
        const VARIANT*& argument = arguments_[i];
        if (argument && V_VT(argument) == VT_ERROR && V_ERROR(argument) == DISP_E_PARAMNOTFOUND)
            argument = nullptr;
        if (!argument && i < requiredCount) {
            setWrong(i);
            return DISP_E_PARAMNOTOPTIONAL;
        }
    }
    return S_OK;
}

} // namespace orv::windows
