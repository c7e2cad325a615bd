#include "Calls.h"

#include <cwchar>
#include <vector>

namespace {

std::wstring codeOf(HRESULT result) {
    wchar_t code[16];
    std::swprintf(code, 16, L" (0x%08lX)", static_cast<unsigned long>(result));
    return code;
}

Variant invoke(IDispatch* object, const wchar_t* member, WORD flags, std::initializer_list<Variant> arguments) {
    DISPID id = DISPID_VALUE;
    if (*member) {
        Text name(member);
        BSTR names = name.get();
        check(object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), member);
    }
    std::vector<VARIANT> reversed; // as Invoke takes them
    for (const Variant& argument : arguments)
        reversed.insert(reversed.begin(), *argument.get());
    const bool isWrite = flags == DISPATCH_PROPERTYPUT;
    DISPID newValue = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), isWrite ? &newValue : nullptr, static_cast<UINT>(reversed.size()),
                          isWrite ? 1U : 0U};
    Variant result;
    EXCEPINFO error{};
    const HRESULT done =
        object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result.get(), &error, nullptr);
    if (done != DISP_E_EXCEPTION) {
        check(done, member);
        return result;
    }
    if (error.pfnDeferredFillIn)
        error.pfnDeferredFillIn(&error);
    const std::wstring told(error.bstrDescription ? error.bstrDescription : L"");
    for (BSTR text : {error.bstrSource, error.bstrDescription, error.bstrHelpFile})
        SysFreeString(text);
    throw ComError{error.scode, told + codeOf(error.scode)};
}

} // namespace

void check(HRESULT result, const wchar_t* what) {
    if (SUCCEEDED(result))
        return;
    std::wstring description = *what ? what + std::wstring(L": ") : std::wstring();
    ComPtr<IErrorInfo> info;
    Text told;
    if (GetErrorInfo(0, info.put()) == S_OK && SUCCEEDED(info->GetDescription(told.address()))) {
        description += told.string();
    } else {
        wchar_t words[256] = L"";
        constexpr DWORD inOneLine = FORMAT_MESSAGE_MAX_WIDTH_MASK;
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | inOneLine, nullptr,
                       static_cast<DWORD>(result), 0, words, 256, nullptr);
        description += words;
    }
    throw ComError{result, description + codeOf(result)};
}

Variant call(IDispatch* object, const wchar_t* member, std::initializer_list<Variant> arguments) {
    return invoke(object, member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}

void put(IDispatch* object, const wchar_t* member, std::initializer_list<Variant> arguments) {
    invoke(object, member, DISPATCH_PROPERTYPUT, arguments);
}
