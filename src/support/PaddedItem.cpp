#include "support/PaddedItem.h"

#include "support/Letters.h"

namespace orv::support {

std::u16string PadItem(std::u16string_view caption, std::u16string_view key) {
    std::u16string item;
    item.reserve(captionWidth + key.size());
    item.assign(caption.substr(0, captionWidth));
    item.resize(captionWidth, u' ');
    return item.append(key);
}

std::u16string_view SplitLookupText(std::u16string_view text, bool keyPart) noexcept {
    if (!keyPart)
        return Trim(text.substr(0, captionWidth));
    return text.size() > captionWidth ? text.substr(captionWidth) : std::u16string_view();
}

} // namespace orv::support
