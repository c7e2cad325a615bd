#pragma once

namespace orv::automation::tests {

/// True when the program runs on the compatibility layer that stands in for Windows in the build: some of its
/// conversion routines fall short of the real ones.
bool runsOnWine();

} // namespace orv::automation::tests
