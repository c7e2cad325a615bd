#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Pair lists: "key=value" items, each closed by a separator ("|" in schemes, ";" in the user properties).
namespace orv::support {

inline constexpr std::u16string_view schemeSeparator = u"|";
inline constexpr std::u16string_view propsSeparator = u";";

/// The value behind the first occurrence of `key` + "=", up to the next separator or the end; "" without one.
/// The occurrence may stand inside a longer key: stored lists have always been read so. The view points into `text`.
std::u16string_view lookupPair(std::u16string_view text, std::u16string_view key,
                               std::u16string_view separator = schemeSeparator);

/// Appends `key` + "=" + value + "|" to a list.
void appendPair(std::u16string& list, std::u16string_view key, std::u16string_view value);
void appendPair(std::u16string& list, std::u16string_view key, std::int32_t value);

/// The number that a stored text begins with; 0 for one too large to be a number, so that a damaged scheme still loads.
double storedNumber(std::u16string_view text);
/// The same as a list position: -1, nothing selected, when no list could be as long.
int storedPosition(std::u16string_view text);

} // namespace orv::support
