#pragma once

namespace orv::memory {

/// Which allocation of this program fails. Allocations while `*pausedBy` is not 0 are neither counted nor failed.
struct Allocations {
    long count = 0;  ///< since armed
    long failAt = 0; ///< number of the allocation that fails, 0 for none; those behind it succeed again
    bool armed = false;
    const int* pausedBy = nullptr;
};
Allocations& allocations() noexcept;

} // namespace orv::memory
