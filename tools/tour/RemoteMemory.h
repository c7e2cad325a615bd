#pragma once

#include "tour/Wait.h"

#include <windows.h>

namespace orv::tour {

/// One structure in the memory of another program, for messages of common controls: the system does not carry those
/// over, as it does with those of edits and list boxes.
template <class Structure>
class RemoteMemory {
  public:
    explicit RemoteMemory(HWND window) {
        DWORD id = 0;
        GetWindowThreadProcessId(window, &id);
        process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
        memory_ = process_ ? VirtualAllocEx(process_, nullptr, sizeof(Structure), MEM_COMMIT, PAGE_READWRITE) : nullptr;
        if (!memory_) {
            const DWORD error = GetLastError();
            close();
            throw TourError("the memory of the list window's program cannot be reached: error " +
                            std::to_string(error));
        }
    }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;
    ~RemoteMemory() { close(); }

    LPARAM address() const noexcept { return reinterpret_cast<LPARAM>(memory_); }
    void write(const Structure& value) const {
        if (!WriteProcessMemory(process_, memory_, &value, sizeof value, nullptr))
            throw TourError("the memory of the list window's program cannot be written");
    }
    Structure read() const {
        Structure value{};
        if (!ReadProcessMemory(process_, memory_, &value, sizeof value, nullptr))
            throw TourError("the memory of the list window's program cannot be read");
        return value;
    }

  private:
    void close() noexcept {
        if (memory_)
            VirtualFreeEx(process_, memory_, 0, MEM_RELEASE);
        if (process_)
            CloseHandle(process_);
    }

    HANDLE process_ = nullptr;
    void* memory_ = nullptr;
};

/// Sends a message whose parameter is a structure; the structure as the control leaves it.
template <class Structure>
Structure ask(HWND window, UINT message, WPARAM wParam, const Structure& given) {
    const RemoteMemory<Structure> memory(window);
    memory.write(given);
    SendMessageW(window, message, wParam, memory.address());
    return memory.read();
}

} // namespace orv::tour
