#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace orv::automation {

/// What a number of a date text is known to be by the sign behind it (年, 月, 日, 时, 分, 秒).
enum class FieldMark { none, year, month, day, hour, minute, second };

enum class HalfDay { none, morning, afternoon };

/// A number of a date text.
struct DateField {
    std::int32_t value = 0;
    FieldMark mark = FieldMark::none;
    bool timeFollows = false; ///< the next number is joined by a time separator
    HalfDay halfDay = HalfDay::none;

    bool isTimeMark() const noexcept { return mark >= FieldMark::hour; }
    bool isDateMark() const noexcept { return mark != FieldMark::none && !isTimeMark(); }
};

/// The numbers of a date text with what stands between them; nothing when something stands there that no date has.
std::optional<std::vector<DateField>> splitDateFields(std::u16string_view text);

} // namespace orv::automation
