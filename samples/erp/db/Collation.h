#pragma once

#include <compare>
#include <string_view>

// The text comparison of the sample's database: that of a server installed for Chinese (PRC), ignoring letter case,
// the width of a character (Ａ is A) and the kind of kana, minding accents. Blanks at the end do not count. The order
// is a word sort: "-" and "'" are skipped and decide only between texts that are otherwise equal; then blank <
// punctuation < digits < letters < everything else by code point (ideographs are not sorted by their pronunciation).
namespace orv::erp {

/// Compares two UTF-8 texts.
std::weak_ordering compareText(std::string_view a, std::string_view b);

/// LIKE: % for any characters, _ for one, [set] and [^set] with ranges; an unclosed "[" matches nothing. Blanks at the
/// end count, as they do for Unicode columns. UTF-8.
bool matchesLike(std::string_view text, std::string_view pattern);

} // namespace orv::erp
