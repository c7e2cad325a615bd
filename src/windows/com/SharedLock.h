#pragma once

#include <windows.h>

namespace orv::windows {

/// Guards tables of the process: controls of several apartments may share the module. Cheaper than std::mutex, and
/// needs no clean-up when the DLL goes.
class SharedLock {
  public:
    void lock() noexcept { AcquireSRWLockExclusive(&lock_); }
    void unlock() noexcept { ReleaseSRWLockExclusive(&lock_); }

  private:
    SRWLOCK lock_ = SRWLOCK_INIT;
};

} // namespace orv::windows
