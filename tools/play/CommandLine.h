#pragma once

#include <iosfwd>

namespace orv::play {

/// Exit statuses of filterplay.
enum ExitStatus : int {
    allAsExpected = 0,
    notAsExpected = 1, ///< an expectation failed
    cannotPlay = 2,    ///< a scenario that makes no sense, or a wrong command line
};

/// Plays the scenarios that the command line names, to its end whatever fails. Outcomes go to `out`, failures to `err`.
int runFilterPlay(int argc, const char* const* argv, std::ostream& out, std::ostream& err);

} // namespace orv::play
