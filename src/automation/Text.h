#pragma once

#include <string>
#include <string_view>

// Conversions at the edges: inside, every text is UTF-16.
namespace orv::automation {

/// UTF-8 of a text; a lone surrogate becomes U+FFFD.
std::string toUtf8(std::u16string_view text);
/// Text of UTF-8; a malformed byte becomes U+FFFD.
std::u16string fromUtf8(std::string_view utf8);

} // namespace orv::automation
