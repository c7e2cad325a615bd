#pragma once

#include <cstdint>

/// Run-time error numbers that only constituent controls raise.
namespace orv::ui::errorNumber {
inline constexpr std::int32_t invalidPropertyValue = 380;
inline constexpr std::int32_t indexOutOfBounds = 35600;
inline constexpr std::int32_t elementNotFound = 35601;
inline constexpr std::int32_t keyNotUnique = 35602;
} // namespace orv::ui::errorNumber
