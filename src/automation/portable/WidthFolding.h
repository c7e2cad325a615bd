#pragma once

#include <string>
#include <string_view>

namespace orv::automation {

/// The text with the full-width forms of ASCII made half-width, as East Asian locales read numbers and dates: digits,
/// signs, letters, the yen sign and the ideographic blank.
std::u16string foldWidth(std::u16string_view text);

constexpr bool isWhite(char16_t unit) noexcept {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == u'\u00A0';
}

} // namespace orv::automation
