#pragma once

#include <cstddef>

namespace orv::windows::test {

/// Windows of this thread, children included.
std::size_t windowCount();

/// GDI objects of this process.
std::size_t gdiCount();

} // namespace orv::windows::test
