#include "ole/GuiObjects.h"

#include <windows.h>

#include <cstdint>
#include <cstring>

namespace orv::windows::test {

namespace {

BOOL CALLBACK countChild(HWND, LPARAM count) {
    ++*reinterpret_cast<std::size_t*>(count);
    return TRUE;
}

BOOL CALLBACK countTree(HWND window, LPARAM count) {
    countChild(window, count);
    EnumChildWindows(window, countChild, count);
    return TRUE;
}

/// An entry of the GDI handle table that every process sees; 65536 of them.
struct GdiEntry {
    std::uint64_t object;
    std::uint32_t owner;
    std::uint16_t unique;
    std::uint8_t type; ///< 0 for a free entry
    std::uint8_t flags;
    std::uint64_t user;
};
static_assert(sizeof(GdiEntry) == 24);

const GdiEntry* gdiTable() {
    std::uintptr_t environment = 0; // the process environment block
    std::uintptr_t table = 0;
#ifdef _WIN64
    constexpr std::size_t tableOffset = 0xF8;
    __asm__("movq %%gs:0x60, %0" : "=r"(environment));
#else
    constexpr std::size_t tableOffset = 0x94;
    __asm__("movl %%fs:0x30, %0" : "=r"(environment));
#endif
    std::memcpy(&table, reinterpret_cast<const void*>(environment + tableOffset), sizeof table);
    return reinterpret_cast<const GdiEntry*>(table);
}

} // namespace

std::size_t windowCount() {
    std::size_t count = 0;
    EnumThreadWindows(GetCurrentThreadId(), countTree, reinterpret_cast<LPARAM>(&count));
    return count;
}

std::size_t gdiCount() {
    if (const DWORD told = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS))
        return told;
    // Wine answers 0 always, but keeps the table.
    std::size_t count = 0;
    const GdiEntry* table = gdiTable();
    for (std::size_t i = 0; table && i < 65536; ++i)
        count += table[i].type != 0 ? 1u : 0u;
    return count;
}

} // namespace orv::windows::test
