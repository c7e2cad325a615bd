#include "automation/TraceFile.h"

#include <windows.h>

namespace orv::automation {

namespace {

HANDLE handleOf(std::intptr_t handle) noexcept {
    return reinterpret_cast<HANDLE>(handle);
}

} // namespace

std::unique_ptr<TraceFile> TraceFile::open(const std::u16string& path) {
    if (path.find(u'\0') != std::u16string::npos)
        return nullptr;
    // The right to append, and no other right to write, has every write go to the end of the file.
    const HANDLE file = CreateFileW(reinterpret_cast<const wchar_t*>(path.c_str()), FILE_APPEND_DATA,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return nullptr;
    return std::unique_ptr<TraceFile>(new TraceFile(reinterpret_cast<std::intptr_t>(file)));
}

TraceFile::~TraceFile() {
    CloseHandle(handleOf(handle_));
}

void TraceFile::append(std::string_view bytes) noexcept {
    DWORD written = 0;
    WriteFile(handleOf(handle_), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

} // namespace orv::automation
