#include "windows/Dll.h"
#include "windows/FakeDispatch.h"

#include <gtest/gtest.h>

// Hosts that pull the rug from under the control while it calls them.
namespace orv::windows::test {

namespace {

constexpr const char16_t* dataMembers[] = {u"SelectList", u"ClassTypeEntry", u"TableInfo", u"ClassType"};

TEST(HostFaults, TheControlOutlivesItsLastReleaseUntilTheCallEnds) {
    for (const char16_t* member : dataMembers) {
        const Dll dll(u"ORVFilter.ocx");
        {
            ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
            const ComPtr<FakeDispatch> host = makeComObject<FakeDispatch>();
            int released = 0;
            for (const char16_t* name : dataMembers)
                host->members[name] = [&, name](const FakeCall& call) {
                    if (std::u16string_view(name) == member && filter) {
                        filter = nullptr; // the host's form closes while the control asks
                        ++released;
                    }
                    V_DISPATCH(call.result) = nullptr;
                    V_VT(call.result) = VT_DISPATCH;
                    return S_OK;
                };
            _Filter* const raw = filter.get();
            raw->put_DataSrv(host.get());
            EXPECT_EQ(released, 1);
            EXPECT_EQ(host->references(), 1u) << "the control went with the call";
        }
        EXPECT_TRUE(dll.canUnload());
    }
}

TEST(HostFaults, AHostThatCallsBackGetsAnAnswer) {
    const LoadedFilter loaded;
    const ComPtr<FakeDispatch> host = makeComObject<FakeDispatch>();
    int depth = 0;
    for (const char16_t* name : dataMembers)
        host->members[name] = [&](const FakeCall& call) {
            if (depth++ < 20) {
                ComPtr<IDispatch> other;
                loaded.filter->put_DataSrv(host.get());
                loaded.filter->ClearMem();
                loaded.filter->get_m_Header(other.put());
            }
            V_VT(call.result) = VT_EMPTY; // no object
            return S_OK;
        };
    loaded.filter->put_DataSrv(host.get());
    EXPECT_GT(depth, 20);
    loaded.filter->put_DataSrv(nullptr);
    loaded.filter->ClearMem();
    EXPECT_EQ(host->references(), 1u);
}

HRESULT STDAPICALLTYPE cannotFillIn(EXCEPINFO*) {
    return E_OUTOFMEMORY;
}

TEST(HostFaults, OddErrorsOfAHostReachTheCallerAsErrors) {
    struct Case {
        const char* name;
        std::function<HRESULT(EXCEPINFO&)> fail;
        HRESULT expected;
    } const cases[] = {
        {"nothing filled in", [](EXCEPINFO&) { return DISP_E_EXCEPTION; }, E_FAIL},
        {"a fill-in that fails",
         [](EXCEPINFO& details) {
             details.scode = static_cast<SCODE>(0x800A0005);
             details.pfnDeferredFillIn = cannotFillIn;
             return DISP_E_EXCEPTION;
         },
         static_cast<HRESULT>(0x800A0005)},
        {"a success as the code",
         [](EXCEPINFO& details) {
             details.scode = S_FALSE;
             return DISP_E_EXCEPTION;
         },
         static_cast<HRESULT>(0x800A0001)},
        {"the connection is gone", [](EXCEPINFO&) { return RPC_E_DISCONNECTED; }, RPC_E_DISCONNECTED},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const LoadedFilter loaded;
        const auto host = fakeWith(u"SelectList", [&](const FakeCall& call) { return c.fail(*call.details); });
        EXPECT_EQ(loaded.filter->put_DataSrv(host.get()), c.expected);
    }
}

} // namespace

} // namespace orv::windows::test
