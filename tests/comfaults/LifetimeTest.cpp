#include "Measures.h"
#include "windows/Dll.h"
#include "windows/FakeDispatch.h"

#include <gtest/gtest.h>

// Thousands of lives: nothing of a control or of its DLL stays behind.
namespace orv::windows::test {

namespace {

constexpr std::size_t noise = 4 << 20; // what the process itself comes to need meanwhile

TEST(Lifetime, TenThousandControlsLeaveNothing) {
    constexpr int lives = 10'000;
    const Dll dll(u"ORVFilter.ocx");
    const ComPtr<FakeDispatch> settings = makeComObject<FakeDispatch>();
    const auto live = [&](int count) {
        for (int i = 0; i < count; ++i) {
            const ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
            ASSERT_EQ(filter->put_dctControl(settings.get()), S_OK);
            ComPtr<IDispatch> keys;
            ASSERT_EQ(filter->get_UseKey(keys.put()), S_OK);
        }
    };
    const LiveBlocks blocks;
    live(500);
    SetErrorInfo(0, nullptr);
    const long blocksBefore = LiveBlocks::count();
    const std::size_t memoryBefore = privateBytes();
    const DWORD handlesBefore = openHandles();
    live(lives - 500);
    SetErrorInfo(0, nullptr);
    std::printf("%d lives: memory %zu KB before, %zu KB after; handles %lu and %lu; texts and arrays %ld and %ld\n",
                lives, memoryBefore / 1024, privateBytes() / 1024, handlesBefore, openHandles(), blocksBefore,
                LiveBlocks::count());
    EXPECT_EQ(LiveBlocks::count(), blocksBefore);
    EXPECT_LT(privateBytes(), memoryBefore + noise);
    EXPECT_EQ(openHandles(), handlesBefore);
    EXPECT_EQ(settings->references(), 1u);
    EXPECT_TRUE(dll.canUnload());
}

TEST(Lifetime, TwoHundredLoadsOfTheDllLeaveNothing) {
    constexpr int loads = 200;
    const std::u16string path = Dll::pathOf(u"ORVFilter.ocx");
    const auto load = [&](int count) {
        for (int i = 0; i < count; ++i) {
            const Dll dll(u"ORVFilter.ocx");
            {
                const ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
                ComPtr<IDispatch> keys;
                ASSERT_EQ(filter->get_UseKey(keys.put()), S_OK);
                EXPECT_FALSE(dll.canUnload());
            }
            ASSERT_TRUE(dll.canUnload());
        }
    };
    load(20);
    ASSERT_EQ(GetModuleHandleW(asWide(path)), nullptr) << "the DLL is really unloaded";
    const std::size_t memoryBefore = privateBytes();
    const DWORD handlesBefore = openHandles();
    const DWORD threadsBefore = runningThreads();
    load(loads - 20);
    EXPECT_EQ(GetModuleHandleW(asWide(path)), nullptr);
    std::printf("%d loads: memory %zu KB before, %zu KB after; handles %lu and %lu; threads %lu and %lu\n", loads,
                memoryBefore / 1024, privateBytes() / 1024, handlesBefore, openHandles(), threadsBefore,
                runningThreads());
    EXPECT_LT(privateBytes(), memoryBefore + noise);
    EXPECT_EQ(openHandles(), handlesBefore);
    EXPECT_EQ(runningThreads(), threadsBefore);
}

} // namespace

} // namespace orv::windows::test
