#include "tour/Report.h"

#include "tour/Screen.h"
#include "tour/Text.h"
#include "tour/Wait.h"

#include <iostream>

namespace orv::tour {

void Report::chapter(const std::string& title) {
    std::cout << "\n== " << title << std::endl;
}

void Report::say(const std::wstring& text) {
    std::cout << "   " << utf8(text) << std::endl;
}

void Report::check(const std::string& what, bool isSo, const std::wstring& seen) {
    ++(isSo ? passed_ : failed_);
    std::cout << (isSo ? "ok: " : "FAILED: ") << what;
    if (!isSo && !seen.empty())
        std::cout << ": " << escaped(seen);
    std::cout << std::endl;
}

void Report::checkEqual(const std::string& what, const std::wstring& seen, const std::wstring& expected) {
    check(what, seen == expected, L"the screen says \"" + seen + L"\", expected is \"" + expected + L"\"");
}

void Report::shot(const std::string& name, HWND window) {
    if (!takesPictures_)
        return;
    awaitDrawn(window);
    const RECT place = placeOf(window);
    std::cout << "SHOT " << name << ' ' << place.right - place.left << 'x' << place.bottom - place.top << '+'
              << place.left << '+' << place.top << std::endl;
    std::string answer;
    if (!std::getline(std::cin, answer))
        throw TourError("nobody takes the picture " + name);
}

void Report::printCounts() const {
    std::cout << passed_ << " passed, " << failed_ << " failed" << std::endl;
}

} // namespace orv::tour
