#pragma once

#include <algorithm>
#include <string_view>

// Letter case and classes of the ASCII part of a text: member names, truth words, number literals.
namespace orv::automation {

constexpr bool isAsciiDigit(char16_t unit) noexcept {
    return unit >= u'0' && unit <= u'9';
}

/// The unit with an ASCII capital made small; any other unit as it is.
constexpr char16_t foldAscii(char16_t unit) noexcept {
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
}

/// Value of a digit in bases up to 16; 16 for any other unit.
constexpr unsigned asciiDigitValue(char16_t unit) noexcept {
    const char16_t folded = foldAscii(unit);
    if (isAsciiDigit(folded))
        return static_cast<unsigned>(folded - u'0');
    return folded >= u'a' && folded <= u'f' ? static_cast<unsigned>(folded - u'a') + 10 : 16;
}

/// True when two texts are the same but for ASCII letter case.
constexpr bool sameIgnoringAsciiCase(std::u16string_view a, std::u16string_view b) noexcept {
    return std::ranges::equal(a, b, {}, foldAscii, foldAscii);
}

} // namespace orv::automation
