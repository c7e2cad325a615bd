#pragma once

#include <string>
#include <vector>

namespace orv::windows::test {

/// The folder of an unpacked package: the first argument of the program.
const std::u16string& packageFolder();

/// The built controls of all bitnesses: the other arguments.
const std::vector<std::u16string>& controls();

} // namespace orv::windows::test
