#pragma once

#include <optional>
#include <string>
#include <string_view>

// The relative ranges of days by the calendar of the standard library.
namespace orv::sqlproof {

/// Days since 30 December 1899, both included.
struct Days {
    int first;
    int last;
};

/// The days that a keyword stands for; nothing for an unknown one.
std::optional<Days> rangeOf(std::u16string_view keyword, int today, int count);

/// yyyy-mm-dd
std::u16string isoDay(int day);
/// The day of a yyyy-mm-dd text.
int dayOf(std::string_view iso);

} // namespace orv::sqlproof
