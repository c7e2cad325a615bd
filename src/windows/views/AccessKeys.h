#pragma once

#include <string>
#include <string_view>

namespace orv::control {
struct FilterControls;
}

namespace orv::ui {
class Control;
}

namespace orv::windows {

/// The letter behind the mark of a caption ("&Save", while "&&" is an ampersand), upper case; 0 without one.
char16_t accessKeyOf(std::u16string_view caption);

/// Whether a control's caption may hold a mark: those of page boxes and of the filter panel are the host's data, and
/// are shown to the letter.
bool captionHasMarks(const ui::Control& control);

/// A text as a control shows it to the letter that would take "&" for a mark.
std::u16string withoutMarks(std::u16string_view text);

/// The access keys of all captions, each once.
std::u16string accessKeysOf(control::FilterControls& controls);

} // namespace orv::windows
