// The control without a window, bound early: it gets metadata, takes the conditions of a scheme and gives SQL.
//
//   early-bound.exe            prints the SQL texts and the columns
//
// ORVFilter.h declares the interfaces; the smart pointers of ../common count the references.
#include "Control.h"

#include <objbase.h>

namespace {

std::wstring columns(_Filter* filter) {
    ComPtr<IDispatch> header;
    check(filter->get_m_Header(header.put()));
    std::wstring keys;
    const LONG count = call(header.get(), L"Count").number();
    for (LONG i = 1; i <= count; ++i) {
        const Variant column = call(header.get(), L"", {i});
        keys += L" " + call(column.object(), L"", {L"FKey"}).string();
    }
    return keys;
}

/// Saves what is on the grids, without questions: nothing is selected, so it becomes the default scheme.
std::wstring savedSchemes(_Filter* filter) {
    Variant nothing;
    check(filter->SaveScheme(nothing.get()));
    const ComPtr<IDispatch> store = createComponent(L"ORVMProfile.classInfo");
    const Variant list = call(store.get(), L"GetProfileList", {L"", LONG{1}});
    const Variant first = call(list.object(), L"", {LONG{1}});
    return call(list.object(), L"Count").string() + L", " + call(first.object(), L"", {L"FSchemeName"}).string();
}

void run() {
    const ComPtr<_Filter> filter = createFilter();
    initialize(filter.get());

    VARIANT_BOOL done = VARIANT_FALSE;
    check(filter->RefreshProfile(sampleScheme().get(), &done));
    printLine(L"scheme applied: " + std::wstring(done ? L"yes" : L"no"));

    Text where;
    check(filter->GetFilterSql(where.address(), VARIANT_TRUE, &done)); // VARIANT_TRUE: errors are raised, not shown
    printLine(L"filter: " + where.string());
    Text head, entry;
    check(filter->GetSortString(head.address(), entry.address(), &done));
    printLine(L"sort: " + head.string());
    printLine(L"columns:" + columns(filter.get()));
    printLine(L"schemes: " + savedSchemes(filter.get()));

    // The server's date comes from the host's "ORVEBCGLView.GLData".
    DATE today = 0;
    check(filter->GetToday(&today));
    SYSTEMTIME now;
    GetLocalTime(&now);
    DATE here = 0;
    SystemTimeToVariantTime(&now, &here);
    printLine(L"the server's date is today's: " +
              std::wstring(static_cast<LONG>(today) == static_cast<LONG>(here) ? L"yes" : L"no"));

    check(filter->ClearMem());
}

} // namespace

int main() {
    int status = 0;
    try {
        check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        run();
    } catch (const ComError& error) {
        printLine(L"failed: " + error.description);
        status = 1;
    }
    CoUninitialize();
    return status;
}
