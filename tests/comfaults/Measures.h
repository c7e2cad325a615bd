#pragma once

#include <windows.h>

#include <cstddef>

// What a process holds, to be compared before and after.
namespace orv::windows::test {

/// Counts blocks of the COM task allocator, from which automation texts and arrays come, while it lives. The cache of
/// freed texts is off from the first one on.
class LiveBlocks {
  public:
    LiveBlocks();
    LiveBlocks(const LiveBlocks&) = delete;
    LiveBlocks& operator=(const LiveBlocks&) = delete;
    ~LiveBlocks();
    /// Blocks allocated and not freed since it began to count.
    static long count() noexcept;
};

/// Committed memory of the process that no other shares, in bytes.
std::size_t privateBytes();
/// Blocks in use on all heaps of the process, those of the C++ runtimes included.
std::size_t heapBlocks();
/// Handles that the process holds open.
int openHandles();
/// Threads that run in the process.
DWORD runningThreads();

} // namespace orv::windows::test
