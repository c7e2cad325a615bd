#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Combo items with a hidden key: the caption padded with blanks to a fixed width, the key behind it, out of sight.
namespace orv::support {

/// UTF-16 units that the caption part takes.
inline constexpr std::size_t captionWidth = 255;

/// The caption, cut or padded with blanks to 255 units, followed by the key.
std::u16string PadItem(std::u16string_view caption, std::u16string_view key);

/// A part of a padded item: with `keyPart` everything behind the first 255 units as it stands, else those units with
/// the blanks trimmed. "" of an empty text. The view points into `text`.
std::u16string_view SplitLookupText(std::u16string_view text, bool keyPart) noexcept;

} // namespace orv::support
