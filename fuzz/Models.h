#pragma once

#include <string>
#include <string_view>
#include <vector>

// The rules about texts once more, written as plainly as they can be: what the fuzzers hold the control's code against.
namespace orv::fuzz::model {

/// The pieces between delimiters; one more than there are delimiters, none of an empty text.
std::vector<std::u16string> split(const std::u16string& text, const std::u16string& delimiter);
/// The n-th piece, from 1; "" beyond.
std::u16string piece(const std::u16string& text, std::size_t n, const std::u16string& delimiter);
/// Without blanks (U+0020) at both ends.
std::u16string trim(const std::u16string& text);
/// The value behind the first `key` + "=", up to the next separator.
std::u16string pairValue(std::u16string list, const std::u16string& key, const std::u16string& separator);
/// ASCII letters as capitals.
std::u16string asciiUpper(std::u16string text);

} // namespace orv::fuzz::model
