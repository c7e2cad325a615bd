#pragma once

#include "automation/Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Moments of the database. They are stored as text "yyyy-mm-dd hh:mm:ss", so that the order of the texts is the order
// of the moments and a whole second is the finest difference.
namespace orv::erp {

/// A moment between 1753-01-01 and 9999-12-31 23:59:59.
struct Moment {
    std::int64_t seconds = 0; ///< since 1970-01-01 00:00:00, in the server's own time zone

    friend auto operator<=>(const Moment&, const Moment&) = default;
};

/// The moment of a calendar date and time of day, nothing when there is no such date within the range.
std::optional<Moment> makeMoment(int year, unsigned month, unsigned day, int secondOfDay = 0);

enum class DateTextFault { malformed, outOfRange };
struct ReadMoment {
    std::optional<Moment> moment;
    DateTextFault fault = DateTextFault::malformed; ///< why there is none
};
/// Reads a text as a Chinese server does: year first, with "-", "/" or "." between, or eight digits, or a year alone;
/// a time "hh:mm", with seconds and a fraction if need be, behind a blank or "T" or alone (on 1900-01-01). "" is
/// 1900-01-01.
ReadMoment readMoment(std::string_view text);

/// "yyyy-mm-dd hh:mm:ss".
std::string storedText(Moment moment);

/// The text of a moment in a style of CONVERT: 0, 20, 120, 21, 121, 23, 108, 111, 112; nothing for any other style.
std::optional<std::string> styledText(Moment moment, int style);

automation::Date toDate(Moment moment);
/// Rounded to the second; nothing beyond the range.
std::optional<Moment> fromDate(automation::Date date);
/// The moment that is `days` after 1900-01-01, as the server reads a number; nothing beyond the range.
std::optional<Moment> fromServerDays(double days);

} // namespace orv::erp
