#include "support/Letters.h"

#include <algorithm>

namespace orv::support {

namespace {

constexpr char16_t before(char16_t unit) noexcept {
    return static_cast<char16_t>(unit - 1);
}
constexpr char16_t shifted(char16_t unit) noexcept {
    return static_cast<char16_t>(unit - 0x20);
}

/// Upper case in Latin Extended-A, where capitals and small letters take turns: small letters are odd but for
/// U+0139..U+0148 and U+0179..U+017E, where they are even.
constexpr char16_t upperExtended(char16_t unit) noexcept {
    switch (unit) {
    case u'\u0131': // dotless i
        return u'I';
    case u'\u017F': // long s
        return u'S';
    case u'\u0138': // kra, without a capital
    case u'\u0149': // apostrophe n, without a capital
        return unit;
    default:
        break;
    }
    const bool smallIsEven = (unit >= 0x139 && unit <= 0x148) || (unit >= 0x179 && unit <= 0x17E);
    const bool isEven = unit % 2 == 0;
    if (unit == u'\u0178') // the capital of U+00FF
        return unit;
    return isEven == smallIsEven ? before(unit) : unit;
}

template <class Find>
std::u16string replaceFound(std::u16string_view text, std::u16string_view what, std::u16string_view with, Find find) {
    std::u16string out;
    if (what.empty())
        return out.assign(text);
    out.reserve(text.size());
    std::size_t from = 0;
    for (std::size_t at = find(from); at != std::u16string_view::npos; at = find(from)) {
        out.append(text, from, at - from).append(with);
        from = at + what.size();
    }
    return out.append(text, from, std::u16string_view::npos);
}

} // namespace

char16_t toUpperBeyondAscii(char16_t unit) noexcept {
    if (unit >= 0xE0 && unit <= 0xFE)
        return unit == u'\u00F7' ? unit : shifted(unit); // the division sign is no letter
    if (unit == u'\u00FF')
        return u'\u0178';
    if (unit >= 0x100 && unit <= 0x17F)
        return upperExtended(unit);
    return unit >= u'\uFF41' && unit <= u'\uFF5A' ? shifted(unit) : unit;
}

std::u16string toUpper(std::u16string_view text) {
    std::u16string out(text);
    for (char16_t& unit : out)
        unit = toUpper(unit);
    return out;
}

bool equalIgnoringCase(std::u16string_view a, std::u16string_view b) noexcept {
    return std::ranges::equal(a, b, [](char16_t x, char16_t y) { return x == y || toUpper(x) == toUpper(y); });
}

std::size_t findIgnoringCase(std::u16string_view text, std::u16string_view what, std::size_t from) noexcept {
    if (from > text.size())
        return std::u16string_view::npos;
    const auto found = std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), what.begin(),
                                   what.end(), [](char16_t x, char16_t y) { return toUpper(x) == toUpper(y); });
    return found == text.end() && !what.empty() ? std::u16string_view::npos
                                                : static_cast<std::size_t>(found - text.begin());
}

std::u16string replaceAll(std::u16string_view text, std::u16string_view what, std::u16string_view with) {
    return replaceFound(text, what, with, [=](std::size_t from) { return text.find(what, from); });
}

std::u16string replaceAllIgnoringCase(std::u16string_view text, std::u16string_view what, std::u16string_view with) {
    return replaceFound(text, what, with, [=](std::size_t from) { return findIgnoringCase(text, what, from); });
}

} // namespace orv::support
