#include "Measures.h"
#include "windows/Dll.h"
#include "windows/FakeDispatch.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <thread>

// Thousands of lives: nothing of a control or of its DLL stays behind.
namespace orv::windows::test {

namespace {

// What the process itself comes to need meanwhile; a block a life would be thousands.
constexpr std::size_t noise = 4 << 20;
constexpr std::size_t fewBlocks = 100;

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
    const std::size_t heapBefore = heapBlocks();
    const int handlesBefore = openHandles();
    live(lives - 500);
    SetErrorInfo(0, nullptr);
    std::printf("%d lives: memory %zu KB before, %zu KB after; handles %d and %d; heap blocks %zu and %zu; texts and "
                "arrays %ld and %ld\n",
                lives, memoryBefore / 1024, privateBytes() / 1024, handlesBefore, openHandles(), heapBefore,
                heapBlocks(), blocksBefore, LiveBlocks::count());
    EXPECT_EQ(LiveBlocks::count(), blocksBefore);
    EXPECT_LT(privateBytes(), memoryBefore + noise);
    EXPECT_LT(heapBlocks(), heapBefore + fewBlocks);
    EXPECT_EQ(openHandles(), handlesBefore);
    EXPECT_EQ(settings->references(), 1u);
    EXPECT_TRUE(dll.canUnload());
}

/// A host's thread: an apartment, the DLL, a control, and everything given back.
void useOnce() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    {
        const Dll dll(u"ORVFilter.ocx");
        {
            const ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
            ComPtr<IDispatch> keys;
            ASSERT_EQ(filter->get_UseKey(keys.put()), S_OK);
            EXPECT_FALSE(dll.canUnload());
        }
    }
    CoUninitialize();
}

/// The same on this thread, whose apartment stands already.
void load() {
    const Dll dll(u"ORVFilter.ocx");
    {
        const ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
        EXPECT_FALSE(dll.canUnload());
    }
    ASSERT_TRUE(dll.canUnload());
}

/// What the process has before and after many loads.
struct Holdings {
    std::size_t memory = privateBytes();
    std::size_t heap = heapBlocks();
    int handles = openHandles();
    DWORD threads = runningThreads();
};

TEST(Lifetime, TwoHundredLoadsOfTheDllUnloadIt) {
    constexpr int loads = 200;
    const std::u16string path = Dll::pathOf(u"ORVFilter.ocx");
    for (int i = 0; i < 20; ++i)
        load();
    ASSERT_EQ(GetModuleHandleW(asWide(path)), nullptr) << "the DLL is really unloaded";
    const Holdings before;
    for (int i = 20; i < loads; ++i)
        load();
    const Holdings after;
    std::printf("%d loads: memory %zu KB and %zu KB; heap blocks %zu and %zu; handles %d and %d; threads %lu and %lu\n",
                loads, before.memory / 1024, after.memory / 1024, before.heap, after.heap, before.handles,
                after.handles, before.threads, after.threads);
    EXPECT_EQ(GetModuleHandleW(asWide(path)), nullptr);
    // The C++ runtime in the DLL leaves this, about 1.5 KB, for the thread that unloads it; it must not become more.
    EXPECT_LE(after.handles, before.handles + 2 * (loads - 20));
    EXPECT_LE(after.heap, before.heap + 13 * (loads - 20));
    EXPECT_LT(after.memory, before.memory + noise);
    EXPECT_LE(after.threads, before.threads);
}

TEST(Lifetime, ThreadsThatUsedTheControlLeaveNothing) {
    constexpr int threads = 200;
    const Dll dll(u"ORVFilter.ocx"); // stays loaded
    const auto play = [](int count) {
        for (int i = 0; i < count; ++i)
            std::thread(useOnce).join();
    };
    play(20);
    const Holdings before;
    play(threads - 20);
    const Holdings after;
    std::printf("%d threads: memory %zu KB and %zu KB; heap blocks %zu and %zu; handles %d and %d\n", threads,
                before.memory / 1024, after.memory / 1024, before.heap, after.heap, before.handles, after.handles);
    EXPECT_LT(after.heap, before.heap + fewBlocks);
    EXPECT_LT(after.handles, before.handles + 10);
    EXPECT_TRUE(dll.canUnload());
}

} // namespace

} // namespace orv::windows::test
