#include "Control.h"

#include <cstdio>

namespace {

/// An object of a class; a failure tells which class it was.
void create(const wchar_t* progId, REFIID interfaceId, void** out) {
    CLSID id;
    HRESULT result = CLSIDFromProgID(progId, &id);
    if (SUCCEEDED(result))
        result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, interfaceId, out);
    check(result, progId);
}

} // namespace

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

ComPtr<IDispatch> createComponent(const wchar_t* progId) {
    ComPtr<IDispatch> component;
    create(progId, IID_IDispatch, component.putVoid());
    return component;
}

void initialize(_Filter* filter) {
    const ComPtr<IDispatch> service = createComponent(L"ORVClassTpl.DataSrv");
    put(service.get(), L"ClassTypeID", {LONG{1}});
    check(filter->put_ShowScheme(VARIANT_TRUE)); // False: for a host that keeps no schemes
    check(filter->put_DataSrv(service.get()));
    VARIANT_BOOL loaded = VARIANT_FALSE;
    // No list of class types: the one of the data service is the only one.
    check(filter->Initialize(nullptr, &loaded));
    if (!loaded)
        throw ComError{E_FAIL, L"Initialize returned False: a trace tells why (settings entry \"Trace\")"};
}

ComPtr<IDispatch> sampleScheme() {
    // A line: "(", FFieldName, comparison by position from 0, value, ")", logic word. Each item ends with ##<&, each
    // line with ||. The value of a list is a position as well.
    const std::wstring lines = L"##<&t_Receipt.FDate##<&1##<&2024-02-01##<&##<&并且##<&||"
                               L"(##<&t_Receipt.FCustomer##<&1##<&贸易##<&##<&或##<&||"
                               L"##<&t_Receipt.FAmount##<&1##<&1000.5##<&)##<&并且##<&||"
                               L"##<&t_Receipt.FStatus##<&0##<&1##<&##<&##<&||";
    ComPtr<IDispatch> scheme = createComponent(L"QDX.Dictionary");
    put(scheme.get(), L"", {L"Relation", lines});
    put(scheme.get(), L"", {L"OrderBy", L"FDate=1|"});
    return scheme;
}
