#include "automation/Coercion.h"
#include "automation/Records.h"
#include "bench/host/LargeHost.h"
#include "bench/windows/Stopwatch.h"
#include "ole/Container.h"
#include "windows/Dll.h"
#include "windows/com/Handles.h"
#include "windows/com/Wrappers.h"

#include <cstdio>
#include <exception>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <vector>

// The real control, loaded from the build folder: what its calls, its windows and its memory cost. The machine's
// display is part of what is measured; the ratios between calls are not.
namespace orv::bench {
namespace {

using windows::ComPtr;
using windows::test::Embedded;

void print(const char* what, double value, const char* unit) {
    std::printf("%-58s %12.3f %s\n", what, value, unit);
    std::fflush(stdout);
}

void check(HRESULT result, const char* what) {
    if (FAILED(result))
        throw std::runtime_error(std::string(what) + " failed");
}

/// Reads a property by its id into a variant.
HRESULT readProperty(_Filter& filter, DISPID id, VARIANT& result) {
    DISPPARAMS none{};
    return filter.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &result, nullptr, nullptr);
}

void measureCalls(_Filter& filter) {
    constexpr std::size_t rounds = 9;
    constexpr std::size_t calls = 100000;
    wchar_t name[] = L"m_JCType";
    LPOLESTR names[] = {name};
    DISPID id = 0;
    check(filter.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), "GetIDsOfNames");

    VARIANT result;
    VARIANT_BOOL flag = VARIANT_FALSE;
    const double direct = leastTime(rounds, calls, [&] { filter.get_m_JCType(&flag); });
    const double byId = leastTime(rounds, calls, [&] { readProperty(filter, id, result); });
    const double byName = leastTime(rounds, calls, [&] {
        DISPID found = 0;
        filter.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &found);
        readProperty(filter, found, result);
    });
    wchar_t lastName[] = L"GetSelectPageList";
    LPOLESTR lastNames[] = {lastName};
    const double namesOnly = leastTime(rounds, calls, [&] {
        DISPID found = 0;
        filter.GetIDsOfNames(IID_NULL, lastNames, 1, LOCALE_USER_DEFAULT, &found);
    });

    ComPtr<ITypeInfo> info;
    check(filter.GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()), "GetTypeInfo");
    const double byTypeInfo = leastTime(3, 2000, [&] {
        DISPPARAMS none{};
        UINT wrong = 0;
        EXCEPINFO details{};
        info->Invoke(&filter, id, DISPATCH_PROPERTYGET, &none, &result, &details, &wrong);
    });

    print("vtable call (m_JCType)", direct * 1e9, "ns");
    print("Invoke by id", byId * 1e9, "ns");
    print("GetIDsOfNames and Invoke                  goal: 25", byName * 1e9, "ns");
    print("GetIDsOfNames of a long name", namesOnly * 1e9, "ns");
    print("for comparison: the type information's own Invoke", byTypeInfo * 1e9, "ns");
}

/// A control on a host of many fields, as automation alone sees it.
struct Opened {
    explicit Opened(std::int32_t fields)
        : host(fields), service(windows::expose(host.dataService(firstLargeClassType))) {}

    void open(_Filter& filter) const {
        const windows::UniqueBstr pages(u",1*,2,");
        check(filter.put_SetSelectPageList(pages.get()), "SetSelectPageList");
        check(filter.put_DataSrv(service.get()), "DataSrv");
        VARIANT_BOOL done = VARIANT_FALSE;
        check(filter.Initialize(nullptr, &done), "Initialize");
        if (done != VARIANT_TRUE)
            throw std::runtime_error("Initialize gave False");
    }

    LargeHost host;
    ComPtr<IDispatch> service;
};

void paintNow(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

void measureOpening(HWND form) {
    for (const std::int32_t fields : {100, 1000, 10000}) {
        Opened opened(fields);
        double withoutWindow = 0;
        double inWindow = 0;
        std::size_t calls = 0;
        for (int round = 0; round < 3; ++round) {
            windows::test::LoadedFilter loaded;
            opened.host.resetCalls();
            const double start = now();
            opened.open(*loaded.filter);
            withoutWindow = round == 0 ? now() - start : std::min(withoutWindow, now() - start);
            calls = opened.host.calls();
        }
        {
            Embedded control(form);
            control.start();
            windows::test::pumpMessages();
            const auto filter = control.as<_Filter>();
            const double start = now();
            opened.open(*filter);
            UpdateWindow(control.window());
            windows::test::pumpMessages();
            inWindow = now() - start;
        }
        char label[100];
        std::snprintf(label, sizeof label, "open with %d fields, no window", static_cast<int>(fields));
        print(label, withoutWindow * 1e3, "ms");
        std::snprintf(label, sizeof label, "open with %d fields, in a window, painted", static_cast<int>(fields));
        print(label, inWindow * 1e3, "ms");
        std::snprintf(label, sizeof label, "late-bound calls a field, %d fields", static_cast<int>(fields));
        print(label, static_cast<double>(calls) / fields, "");
    }
}

/// The largest window that has none within it: the grid of the page in front.
HWND largestChild(HWND window) {
    struct Search {
        HWND largest = nullptr;
        LONG area = 0;
    } search;
    EnumChildWindows(
        window,
        +[](HWND child, LPARAM found) -> BOOL {
            auto& result = *reinterpret_cast<Search*>(found);
            RECT bounds{};
            GetClientRect(child, &bounds);
            if (IsWindowVisible(child) && !GetWindow(child, GW_CHILD) && bounds.right * bounds.bottom > result.area)
                result = {child, bounds.right * bounds.bottom};
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.largest;
}

void measurePainting(HWND form) {
    const double start = now();
    Embedded control(form);
    const double created = now();
    control.start();
    paintNow(control.window());
    const double painted = now();
    print("creation of the control", (created - start) * 1e3, "ms");
    print("creation to first paint in a container", (painted - start) * 1e3, "ms");

    const Opened opened(1000);
    opened.open(*control.as<_Filter>());
    windows::test::pumpMessages();
    const HWND all = control.window();
    print("the whole control, painted again", leastTime(10, 3, [&] { paintNow(all); }) * 1e3, "ms");
    if (const HWND grid = largestChild(all))
        print("the condition grid, painted again", leastTime(10, 3, [&] { paintNow(grid); }) * 1e3, "ms");
}

/// What lies in the heaps of the process. Windows and their pictures are kept elsewhere and do not count.
double heapKilobytes() {
    HANDLE heaps[64];
    const DWORD count = std::min<DWORD>(GetProcessHeaps(static_cast<DWORD>(std::size(heaps)), heaps),
                                        static_cast<DWORD>(std::size(heaps)));
    double bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry))
            if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
                bytes += entry.cbData;
    }
    return bytes / 1024;
}

void measureMemory(HWND form) {
    constexpr int count = 10;
    std::vector<std::unique_ptr<Embedded>> controls;
    controls.push_back(std::make_unique<Embedded>(form)); // what is made once for all of them
    controls.back()->start();
    windows::test::pumpMessages();
    const auto growth = [&](auto action) {
        const double before = heapKilobytes();
        for (int i = 0; i < count; ++i)
            action(i);
        windows::test::pumpMessages();
        return (heapKilobytes() - before) / count;
    };
    print("heap of a control without a window",
          growth([&](int) { controls.push_back(std::make_unique<Embedded>(form)); }), "KB");
    print("its windows", growth([&](int i) { controls[static_cast<std::size_t>(i) + 1]->start(); }), "KB");
    const Opened opened(1000);
    print("and 1,000 fields",
          growth([&](int i) { opened.open(*controls[static_cast<std::size_t>(i) + 1]->as<_Filter>()); }), "KB");
}

void measureAll() {
    {
        windows::test::LoadedFilter loaded;
        measureCalls(*loaded.filter);
    }
    windows::test::FormWindow form;
    measurePainting(form.hwnd());
    measureOpening(form.hwnd());
    measureMemory(form.hwnd());
}

} // namespace
} // namespace orv::bench

int main() try {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    orv::bench::measureAll();
    CoUninitialize();
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
