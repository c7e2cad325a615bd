#pragma once

#include <string>
#include <string_view>

// How the sample's database compares texts, told once more in plain code: what a count is checked against must not be
// computed by the code that is checked.
namespace orv::sqlproof {

/// Negative, 0 or positive. Letter case, full-width forms and blanks at the end do not count. A word sort: "-" and "'"
/// decide only between texts that are otherwise equal; blank < punctuation < digits < letters < the rest.
int compareTexts(std::u16string_view a, std::u16string_view b);

/// LIKE with %, _, [set], [^set] and ranges; an unclosed "[" matches nothing. Blanks at the end count.
bool isLike(std::u16string_view text, std::u16string_view pattern);

} // namespace orv::sqlproof
