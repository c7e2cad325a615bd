#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Blanks and letter case. Case maps one unit to one unit: Latin letters, their full-width forms included; every other
// character is its own upper case.
namespace orv::support {

/// The text without leading and trailing blanks (U+0020 only: tabs and line ends stay).
constexpr std::u16string_view Trim(std::u16string_view text) noexcept {
    while (!text.empty() && text.front() == u' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    return text;
}

/// The upper case of a unit beyond ASCII.
char16_t toUpperBeyondAscii(char16_t unit) noexcept;

inline char16_t toUpper(char16_t unit) noexcept {
    if (unit < 0x80)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 0x20) : unit;
    return toUpperBeyondAscii(unit);
}
std::u16string toUpper(std::u16string_view text);

bool equalIgnoringCase(std::u16string_view a, std::u16string_view b) noexcept;

/// Position of the first occurrence of `what` at or after `from`; npos without one. An empty `what` is found at once.
std::size_t findIgnoringCase(std::u16string_view text, std::u16string_view what, std::size_t from = 0) noexcept;

/// The text with every occurrence of `what` replaced, left to right; what was put in is not searched again. An empty
/// `what` replaces nothing.
std::u16string replaceAll(std::u16string_view text, std::u16string_view what, std::u16string_view with);
std::u16string replaceAllIgnoringCase(std::u16string_view text, std::u16string_view what, std::u16string_view with);

} // namespace orv::support
