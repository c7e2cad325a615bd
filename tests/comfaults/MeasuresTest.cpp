#include "Measures.h"

#include <gtest/gtest.h>

#include <oleauto.h>

#include <vector>

// The measures must see what they are for: one that is blind would call everything flat.
namespace orv::windows::test {

namespace {

TEST(Measures, SeeWhatAProcessTakes) {
    const LiveBlocks blocks;
    BSTR const text = SysAllocString(L"one text");
    EXPECT_EQ(LiveBlocks::count(), 1);
    SysFreeString(text);
    EXPECT_EQ(LiveBlocks::count(), 0);

    const int handles = openHandles();
    const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    EXPECT_EQ(openHandles(), handles + 1);
    CloseHandle(event);
    EXPECT_EQ(openHandles(), handles);

    constexpr std::size_t many = 1000;
    std::vector<char*> leaked;
    leaked.reserve(many);
    const std::size_t before = heapBlocks();
    for (std::size_t i = 0; i < many; ++i)
        leaked.push_back(new char[40]);
    EXPECT_GE(heapBlocks(), before + many / 2) << "a heap may keep small blocks together";
    for (char* const block : leaked)
        delete[] block;

    constexpr std::size_t megabyte = 1 << 20;
    const std::size_t bytes = privateBytes();
    void* const region = VirtualAlloc(nullptr, megabyte, MEM_COMMIT, PAGE_READWRITE);
    EXPECT_EQ(privateBytes(), bytes + megabyte);
    VirtualFree(region, 0, MEM_RELEASE);
}

} // namespace

} // namespace orv::windows::test
