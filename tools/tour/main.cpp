#include "tour/Resolution.h"
#include "tour/Text.h"
#include "tour/Tour.h"
#include "tour/Wait.h"

#include <windows.h>

#include <objbase.h>

#include <iostream>
#include <map>

namespace {

constexpr const char* usage =
    "usage: orvtour --program ORVLIST.EXE --database FILE --scenarios FOLDER --results FOLDER\n"
    "               [--desktop NAME] [--pictures yes]\n"
    "Plays a tour over the windows of the sample, by keys and mouse. With pictures it prints \"SHOT name WxH+X+Y\" "
    "and\n"
    "awaits a line on the standard input for each.\n";

/// The desktop may still be in the making.
void goToDesktop(const std::wstring& name) {
    const HDESK desktop = orv::tour::awaited("the desktop " + orv::tour::utf8(name),
                                             [&] { return OpenDesktopW(name.c_str(), 0, FALSE, GENERIC_ALL); });
    if (!SetThreadDesktop(desktop))
        throw orv::tour::TourError("cannot go to the desktop " + orv::tour::utf8(name) + ": error " +
                                   std::to_string(GetLastError()));
}

int run(const orv::tour::TourOptions& options) {
    orv::tour::Tour tour(options);
    bool held = false;
    try {
        // Before COM: its window would hold the thread on the present desktop.
        if (!options.desktop.empty())
            goToDesktop(options.desktop);
        if (FAILED(CoInitialize(nullptr)))
            throw orv::tour::TourError("COM does not start");
        held = tour.run();
    } catch (const std::exception& error) {
        tour.stopped(error.what());
    }
    tour.report().printCounts();
    return held ? 0 : 1;
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    using orv::tour::utf8;
    std::map<std::wstring, std::wstring> given;
    for (int i = 1; i + 1 < count; i += 2)
        given[arguments[i]] = arguments[i + 1];
    for (const wchar_t* needed : {L"--program", L"--database", L"--scenarios", L"--results"})
        if (!given.contains(needed)) {
            std::cerr << usage;
            return 2;
        }
    orv::tour::seeRealPixels();
    return run({given[L"--program"], given[L"--database"], given[L"--desktop"], utf8(given[L"--scenarios"]),
                utf8(given[L"--results"]), !given[L"--pictures"].empty()});
}
