#include "play/DateText.h"

#include "play/ScenarioError.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace orv::play {

namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days dayZero = std::chrono::year{1899} / std::chrono::December / 30;
constexpr long secondsPerDay = 86400;

/// Reads texts such as "2024-02-29" piece by piece; `ok` turns false at the first piece that does not fit.
class Reader {
  public:
    explicit Reader(std::string_view text) : text_(text) {}
    bool ok = true;
    bool atEnd() const { return text_.empty(); }

    /// Exactly `width` digits.
    int digits(std::size_t width) {
        int number = 0;
        const char* const last = text_.data() + std::min(width, text_.size());
        const auto [end, error] = std::from_chars(text_.data(), last, number);
        ok = ok && text_.size() >= width && error == std::errc{} && end == last && number >= 0;
        text_.remove_prefix(std::min(width, text_.size()));
        return number;
    }
    void sign(char expected) {
        ok = ok && !text_.empty() && text_.front() == expected;
        text_.remove_prefix(text_.empty() ? 0 : 1);
    }

  private:
    std::string_view text_;
};

} // namespace

std::string dateText(automation::Date date) {
    // The fraction counts forwards within its day, before day 0 too: -1.25 is six o'clock of day -1.
    double day = std::trunc(date.days);
    long seconds = std::lround(std::abs(date.days - day) * static_cast<double>(secondsPerDay));
    if (seconds == secondsPerDay) {
        seconds = 0;
        day += 1;
    }
    const year_month_day ymd{dayZero + std::chrono::days{static_cast<int>(day)}};
    char text[64];
    int length = std::snprintf(text, sizeof text, "%04d-%02u-%02u", static_cast<int>(ymd.year()),
                               static_cast<unsigned>(ymd.month()), static_cast<unsigned>(ymd.day()));
    if (seconds != 0)
        length += std::snprintf(text + length, sizeof text - static_cast<std::size_t>(length), " %02ld:%02ld:%02ld",
                                seconds / 3600, seconds / 60 % 60, seconds % 60);
    return {text, static_cast<std::size_t>(length)};
}

automation::Date parseDateText(std::string_view text) {
    Reader reader(text);
    const int year = reader.digits(4);
    reader.sign('-');
    const int month = reader.digits(2);
    reader.sign('-');
    const int day = reader.digits(2);
    int hours = 0, minutes = 0, seconds = 0;
    if (!reader.atEnd()) {
        reader.sign(' ');
        hours = reader.digits(2);
        reader.sign(':');
        minutes = reader.digits(2);
        if (!reader.atEnd()) {
            reader.sign(':');
            seconds = reader.digits(2);
        }
    }
    const year_month_day ymd{std::chrono::year{year}, std::chrono::month{static_cast<unsigned>(month)},
                             std::chrono::day{static_cast<unsigned>(day)}};
    if (!reader.ok || !reader.atEnd() || !ymd.ok() || hours > 23 || minutes > 59 || seconds > 59)
        throw ScenarioError("\"" + std::string(text) +
                            "\" is no date such as \"2024-02-29\" or \"2024-02-29 10:00:00\"");
    const double days = static_cast<double>((sys_days{ymd} - dayZero).count());
    const double part = (hours * 3600.0 + minutes * 60.0 + seconds) / static_cast<double>(secondsPerDay);
    return {days < 0 ? days - part : days + part};
}

} // namespace orv::play
