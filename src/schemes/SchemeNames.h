#pragma once

#include <string>
#include <string_view>

namespace orv::schemes {

/// The stored name of the built-in default scheme.
inline constexpr std::u16string_view defaultSchemeName = u"Default Schema";

/// Whether a name is one of the three under which the default scheme is shown.
bool isDefaultSchemeName(std::u16string_view name) noexcept;

/// The stored name for a shown one: any name of the default scheme is its stored one.
std::u16string storedSchemeName(std::u16string_view shown);

/// The name to show for a stored one in a language ("CHT", "EN", any other is the source language).
std::u16string shownSchemeName(std::u16string_view stored, std::u16string_view language);

/// What a list item's tag tells of its scheme: identifier, owner and share flag between "|".
struct SchemeTag {
    std::u16string id;
    std::u16string owner;
    std::u16string isShare;

    static SchemeTag parse(std::u16string_view tag);
    std::u16string text() const { return id + u"|" + owner + u"|" + isShare; }
    friend bool operator==(const SchemeTag&, const SchemeTag&) = default;
};

} // namespace orv::schemes
