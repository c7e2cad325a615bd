#include "Control.h"

#include <cstdio>
#include <vector>

namespace {

/// An object of a class; a failure tells which class it was.
void create(const wchar_t* progId, REFIID interfaceId, void** out) {
    CLSID id;
    HRESULT result = CLSIDFromProgID(progId, &id);
    if (SUCCEEDED(result))
        result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, interfaceId, out);
    check(result, progId);
}

ComPtr<IDispatch> createComponent(const wchar_t* progId) {
    ComPtr<IDispatch> component;
    create(progId, IID_IDispatch, component.putVoid());
    return component;
}

/// Writes a property of a late-bound object; `id` 0 with a key is an entry of a dictionary.
void put(IDispatch* object, DISPID id, std::initializer_list<Variant> arguments) {
    std::vector<VARIANT> reversed;
    for (const Variant& argument : arguments)
        reversed.insert(reversed.begin(), *argument.get());
    DISPID newValue = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), &newValue, static_cast<UINT>(reversed.size()), 1};
    check(object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr,
                         nullptr));
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
    wchar_t code[16];
    std::swprintf(code, 16, L" (0x%08lX)", static_cast<unsigned long>(result));
    throw ComError{result, description + code};
}

void printLine(const std::wstring& line) {
    const std::wstring text = line + L"\n";
    const int length = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(length) * 3, '\0');
    const int used = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), length * 3, nullptr, nullptr);
    std::fwrite(bytes.data(), 1, static_cast<std::size_t>(used), stdout);
    std::fflush(stdout);
}

ComPtr<_Filter> createFilter() {
    ComPtr<_Filter> filter;
    create(L"ORVFilter.Filter", __uuidof(_Filter), filter.putVoid());
    return filter;
}

void initialize(_Filter* filter) {
    const ComPtr<IDispatch> service = createComponent(L"ORVClassTpl.DataSrv");
    Text name(L"ClassTypeID");
    BSTR member = name.get();
    DISPID id = DISPID_UNKNOWN;
    check(service->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id));
    put(service.get(), id, {LONG{1}});
    check(filter->put_DataSrv(service.get()));
    VARIANT_BOOL loaded = VARIANT_FALSE;
    // No list of class types: the one of the data service is the only one.
    check(filter->Initialize(nullptr, &loaded));
    if (!loaded)
        throw ComError{E_FAIL, L"Initialize returned False: a debugger shows why (OutputDebugString)"};
}

ComPtr<IDispatch> sampleScheme() {
    // A line: "(", column, comparison by position from 0, value, ")", logic word. Each item ends with ##<&, each line
    // with ||.
    const std::wstring lines = L"##<&t_Receipt.FDate##<&1##<&2024-02-01##<&##<&并且##<&||"
                               L"(##<&t_Receipt.FCustomer##<&1##<&贸易##<&##<&或##<&||"
                               L"##<&t_Receipt.FAmount##<&1##<&1000.5##<&)##<&##<&||";
    ComPtr<IDispatch> scheme = createComponent(L"QDX.Dictionary");
    put(scheme.get(), DISPID_VALUE, {L"Relation", lines});
    put(scheme.get(), DISPID_VALUE, {L"OrderBy", L"FDate=1|"});
    return scheme;
}
