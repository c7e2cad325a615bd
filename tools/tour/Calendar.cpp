#include "tour/Calendar.h"

#include "tour/Input.h"
#include "tour/RemoteMemory.h"
#include "tour/Screen.h"
#include "tour/Text.h"

#include <commctrl.h>

#include <array>
#include <cwchar>
#include <functional>
#include <optional>

namespace orv::tour {

namespace {

/// What the calendar has at a point of its client area.
struct Spot {
    UINT what;
    SYSTEMTIME date;
};

Spot spotAt(HWND calendar, POINT at) {
    MCHITTESTINFO asked{};
    asked.cbSize = MCHITTESTINFO_V1_SIZE;
    asked.pt = at;
    const MCHITTESTINFO found = ask(calendar, MCM_HITTEST, 0, asked);
    return {found.uHit, found.st};
}

/// The first point of a coarse net over the calendar that is what is looked for; on the screen.
std::optional<POINT> search(HWND calendar, const std::function<bool(const Spot&)>& isWanted) {
    constexpr LONG step = 8;
    RECT client{};
    GetClientRect(calendar, &client);
    for (LONG y = step / 2; y < client.bottom; y += step)
        for (LONG x = step / 2; x < client.right; x += step)
            if (isWanted(spotAt(calendar, {x, y}))) {
                POINT at{x, y};
                ClientToScreen(calendar, &at);
                return at;
            }
    return std::nullopt;
}

/// Months since the year 0.
int monthShown(HWND calendar) {
    using Range = std::array<SYSTEMTIME, 2>;
    const Range shown = ask<Range>(calendar, MCM_GETMONTHRANGE, GMR_VISIBLE, {});
    return shown[0].wYear * 12 + shown[0].wMonth - 1;
}

void turnTo(HWND calendar, int month) {
    while (monthShown(calendar) != month) {
        const int before = monthShown(calendar);
        const UINT arrow = before > month ? MCHT_TITLEBTNPREV : MCHT_TITLEBTNNEXT;
        const auto at = search(calendar, [arrow](const Spot& spot) { return spot.what == arrow; });
        if (!at)
            throw TourError("the calendar has no arrow to another month");
        const int step = before > month ? -1 : 1;
        for (int next = before + step; monthShown(calendar) != month; next += step) {
            click(*at);
            awaited("the calendar to turn a month", [&] { return monthShown(calendar) == next; });
        }
    }
}

} // namespace

void pickDate(HWND calendar, const std::wstring& date) {
    unsigned year = 0, month = 0, day = 0;
    if (std::swscanf(date.c_str(), L"%u-%u-%u", &year, &month, &day) != 3)
        throw TourError("not a date: " + utf8(date));
    turnTo(calendar, static_cast<int>(year * 12 + month - 1));
    const auto at = search(calendar, [&](const Spot& spot) {
        return spot.what == MCHT_CALENDARDATE && spot.date.wMonth == month && spot.date.wDay == day;
    });
    if (!at)
        throw TourError("the calendar does not show " + utf8(date));
    click(*at);
}

} // namespace orv::tour
