#include "Measures.h"

#include <objbase.h>
#include <oleauto.h>
#include <tlhelp32.h>

#include <atomic>
#include <cstdint>
#include <iterator>
#include <stdexcept>

extern "C" void WINAPI SetOaNoCache(void);

namespace orv::windows::test {

namespace {

std::atomic<long> live{0};

/// A spy that changes nothing: sizes and pointers pass as they are.
class Spy final : public IMallocSpy {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) noexcept override {
        *out = id == IID_IUnknown || id == IID_IMallocSpy ? this : nullptr;
        return *out ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return 2; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return 1; }

    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) noexcept override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) noexcept override {
        live += block ? 1 : 0;
        return block;
    }
    void* STDMETHODCALLTYPE PreFree(void* block, BOOL spied) noexcept override {
        live -= block && spied ? 1 : 0;
        return block;
    }
    void STDMETHODCALLTYPE PostFree(BOOL) noexcept override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** real, BOOL spied) noexcept override {
        *real = block;
        live += block && spied ? 0 : 1;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) noexcept override { return block; }
    void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) noexcept override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) noexcept override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) noexcept override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int answer) noexcept override { return answer; }
    void STDMETHODCALLTYPE PreHeapMinimize() noexcept override {}
    void STDMETHODCALLTYPE PostHeapMinimize() noexcept override {}
};
Spy spy;

} // namespace

LiveBlocks::LiveBlocks() {
    SetOaNoCache();
    live = 0;
    if (FAILED(CoRegisterMallocSpy(&spy)))
        throw std::runtime_error("allocations cannot be counted");
}

LiveBlocks::~LiveBlocks() {
    CoRevokeMallocSpy();
}

long LiveBlocks::count() noexcept {
    return live;
}

std::size_t privateBytes() {
    std::size_t bytes = 0;
    MEMORY_BASIC_INFORMATION part{};
    for (char* at = nullptr; VirtualQuery(at, &part, sizeof part) == sizeof part;
         at = static_cast<char*>(part.BaseAddress) + part.RegionSize)
        if (part.State == MEM_COMMIT && part.Type == MEM_PRIVATE)
            bytes += part.RegionSize;
    return bytes;
}

std::size_t heapBlocks() {
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(std::size(heaps)), heaps);
    std::size_t blocks = 0;
    for (DWORD i = 0; i < count && i < std::size(heaps); ++i) {
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry))
            blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? 1U : 0U;
    }
    return blocks;
}

int openHandles() {
    // The process's own counter is a stub on some systems: every value that could be a handle is tried.
    constexpr std::uintptr_t highest = 0x4000;
    int count = 0;
    for (std::uintptr_t value = 4; value < highest; value += 4) {
        DWORD flags = 0;
        count += GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) ? 1 : 0;
    }
    return count;
}

DWORD runningThreads() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    DWORD count = 0;
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry))
        count += entry.th32OwnerProcessID == GetCurrentProcessId() ? 1U : 0U;
    CloseHandle(snapshot);
    return count;
}

} // namespace orv::windows::test
