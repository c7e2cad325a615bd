#include "windows/com/Module.h"

#include "windows/com/Handles.h"

#include <atomic>

namespace orv::windows::module {

namespace {

std::atomic<HINSTANCE> ownInstance{nullptr};
std::atomic<long> uses{0};

} // namespace

void setInstance(HINSTANCE instance) noexcept {
    ownInstance = instance;
}

HINSTANCE instance() noexcept {
    return ownInstance;
}

std::u16string path() {
    std::wstring buffer(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ownInstance, buffer.data(), static_cast<DWORD>(buffer.size()));
        if (length < buffer.size())
            return std::u16string(asUtf16(buffer.c_str()), length);
        buffer.resize(buffer.size() * 2);
    }
}

long useCount() noexcept {
    return uses;
}

void addUse() noexcept {
    ++uses;
}

void releaseUse() noexcept {
    --uses;
}

} // namespace orv::windows::module
