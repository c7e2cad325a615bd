#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// Pair lists: "key=value" items, each closed by a separator ("|" in schemes, ";" in the user properties).
namespace orv::support {

inline constexpr std::u16string_view schemeSeparator = u"|";
inline constexpr std::u16string_view propsSeparator = u";";

/// The value behind the first occurrence of `key` + "=", up to the next separator or the end; "" without one.
/// The occurrence may stand inside a longer key: stored lists have always been read so. The view points into `text`.
std::u16string_view lookupPair(std::u16string_view text, std::u16string_view key,
                               std::u16string_view separator = schemeSeparator);

/// A pair list that is asked for many keys: gives what lookupPair gives for each, without searching the text again.
/// The text must outlive it.
class PairIndex {
  public:
    explicit PairIndex(std::u16string_view text, std::u16string_view separator = schemeSeparator);
    /// The value of a key, as lookupPair finds it. The view points into the text.
    std::u16string_view value(std::u16string_view key);

  private:
    /// Where each run of units that stands before a "=" begins first.
    using Heads = std::unordered_map<std::u16string_view, std::size_t>;

    std::u16string_view text_;
    std::u16string_view separator_;
    std::vector<std::size_t> signs_;     ///< positions of "="
    std::map<std::size_t, Heads> heads_; ///< by the length of the run; made when a key of that length is asked for
};

/// Appends `key` + "=" + value + "|" to a list.
void appendPair(std::u16string& list, std::u16string_view key, std::u16string_view value);
void appendPair(std::u16string& list, std::u16string_view key, std::int32_t value);

/// The number that a stored text begins with; 0 for one too large to be a number, so that a damaged scheme still loads.
double storedNumber(std::u16string_view text);
/// The same as a list position: -1, nothing selected, when no list could be as long.
int storedPosition(std::u16string_view text);

} // namespace orv::support
