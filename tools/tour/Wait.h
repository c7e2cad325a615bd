#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace orv::tour {

/// The tour cannot go on; says what was awaited or is missing.
class TourError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A loaded machine may take its time to draw a window or to read thousands of bills.
inline constexpr DWORD patienceMs = 30'000;
inline constexpr DWORD pollMs = 15;

/// What `poll` gives as soon as that is neither null nor false; a TourError that names `what` after `limitMs`.
template <class Poll>
auto awaited(const std::string& what, Poll&& poll, DWORD limitMs = patienceMs) {
    const DWORD start = GetTickCount();
    while (true) {
        if (auto result = poll())
            return result;
        if (GetTickCount() - start > limitMs)
            throw TourError("waited " + std::to_string(limitMs / 1000) + " s in vain for " + what);
        Sleep(pollMs);
    }
}

/// Whether a state comes within a time.
template <class Poll>
bool comesTrue(Poll&& poll, DWORD limitMs) {
    const DWORD start = GetTickCount();
    while (!poll()) {
        if (GetTickCount() - start > limitMs)
            return false;
        Sleep(pollMs);
    }
    return true;
}

} // namespace orv::tour
