#pragma once

#include <cstdint>
#include <string>

// Number texts written into a buffer that the caller grows: the SQL is one buffer.
namespace orv::automation {

/// Appends what `numberToText` gives.
void appendNumber(std::u16string& out, double number);

/// Appends a whole number in decimal, without grouping.
void appendInteger(std::u16string& out, std::int64_t number);

} // namespace orv::automation
