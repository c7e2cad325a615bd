#include "windows/views/AccessKeys.h"

#include "control/FilterControls.h"

#include <windows.h>

namespace orv::windows {

namespace {

constexpr char16_t mark = u'&';

char16_t upper(char16_t letter) {
    const auto raised = CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(letter)));
    return static_cast<char16_t>(reinterpret_cast<ULONG_PTR>(raised));
}

} // namespace

char16_t accessKeyOf(std::u16string_view caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] == mark && caption[++i] != mark)
            return upper(caption[i]);
    }
    return 0;
}

bool captionHasMarks(const ui::Control& control) {
    const bool isData = control.index() && !dynamic_cast<const ui::Button*>(&control);
    return !isData && dynamic_cast<const ui::CaptionControl*>(&control);
}

std::u16string withoutMarks(std::u16string_view text) {
    std::u16string doubled;
    for (const char16_t c : text)
        doubled.append(c == mark ? 2 : 1, c);
    return doubled;
}

std::u16string accessKeysOf(control::FilterControls& controls) {
    std::u16string keys;
    controls.forEach([&keys](ui::Control& control) {
        if (!captionHasMarks(control))
            return;
        const char16_t key = accessKeyOf(static_cast<const ui::CaptionControl&>(control).caption());
        if (key != 0 && keys.find(key) == std::u16string::npos)
            keys += key;
    });
    return keys;
}

} // namespace orv::windows
