#include "automation/portable/WidthFolding.h"

namespace orv::automation {

namespace {
constexpr char16_t halfWidth(char16_t unit) noexcept {
    if (unit >= u'\uFF01' && unit <= u'\uFF5E')
        return static_cast<char16_t>(unit - u'\uFF01' + u'!');
    if (unit == u'\u3000')
        return u' ';
    return unit == u'\uFFE5' ? u'\u00A5' : unit;
}
} // namespace

std::u16string foldWidth(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& unit : folded)
        unit = halfWidth(unit);
    return folded;
}

} // namespace orv::automation
