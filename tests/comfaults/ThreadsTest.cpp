#include "windows/Dll.h"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>

// The control lives in the apartment of its host.
namespace orv::windows::test {

namespace {

/// Runs `work` on a thread with an apartment of its own and serves this one's calls meanwhile.
void onOtherThread(DWORD apartment, const std::function<void()>& work) {
    std::atomic<bool> ended{false};
    const DWORD here = GetCurrentThreadId();
    std::thread other([&] {
        CoInitializeEx(nullptr, apartment);
        work();
        CoUninitialize();
        ended = true;
        PostThreadMessageW(here, WM_NULL, 0, 0);
    });
    MSG message;
    while (!ended && GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    other.join();
}

TEST(Threads, ProxiesReachTheControlFromOtherApartments) {
    const LoadedFilter loaded;
    for (const DWORD apartment : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
        ComPtr<IStream> stream;
        ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IDispatch, loaded.filter.get(), stream.put()), S_OK);
        HRESULT unmarshalled = E_FAIL;
        HRESULT written = E_FAIL;
        onOtherThread(apartment, [&] {
            ComPtr<IDispatch> proxy;
            unmarshalled = CoGetInterfaceAndReleaseStream(stream.detach(), IID_IDispatch, proxy.putVoid());
            if (FAILED(unmarshalled))
                return;
            VARIANT value{};
            V_VT(&value) = VT_BSTR;
            const UniqueBstr text(u",1,2,");
            V_BSTR(&value) = text.get();
            DISPID newValue = DISPID_PROPERTYPUT;
            DISPPARAMS parameters{&value, &newValue, 1, 1};
            written = proxy->Invoke(0x68030002, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters,
                                    nullptr, nullptr, nullptr);
        });
        EXPECT_EQ(unmarshalled, S_OK);
        EXPECT_EQ(written, S_OK);
        UniqueBstr pages;
        ASSERT_EQ(loaded.filter->get_GetSelectPageList(pages.put()), S_OK);
        EXPECT_EQ(pages.view(), u",1,2,");
        ASSERT_EQ(loaded.filter->put_SetSelectPageList(nullptr), S_OK);
    }
}

// A raw pointer on a wrong thread is the caller's error; plain members answer all the same.
TEST(Threads, PlainMembersSurviveACallFromAWrongThread) {
    const LoadedFilter loaded;
    for (const DWORD apartment : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
        HRESULT read = E_FAIL;
        HRESULT keys = E_FAIL;
        onOtherThread(apartment, [&] {
            VARIANT_BOOL flag = VARIANT_TRUE;
            read = loaded.filter->get_m_JCType(&flag);
            ComPtr<IDispatch> object;
            keys = loaded.filter->get_UseKey(object.put());
            loaded.filter->AddRef();
            loaded.filter->Release();
        });
        EXPECT_EQ(read, S_OK);
        EXPECT_EQ(keys, S_OK);
    }
}

TEST(Threads, ControlsOfEndedThreadsLeaveTheDllUnloadable) {
    const Dll dll(u"ORVFilter.ocx");
    for (int i = 0; i < 50; ++i)
        onOtherThread(COINIT_APARTMENTTHREADED, [&] {
            const ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
            EXPECT_EQ(filter->ClearMem(), S_OK);
        });
    EXPECT_TRUE(dll.canUnload());
}

} // namespace

} // namespace orv::windows::test
