#include "windows/com/MessageBoxPrompts.h"

#include "windows/com/Handles.h"

namespace orv::windows {

ui::MessageAnswer MessageBoxPrompts::message(const std::u16string& text, std::int32_t style,
                                             const std::u16string& title) {
    const HWND owner = owner_ ? owner_() : nullptr;
    // Without an owner the box must at least block the windows of its thread, as a modal box does.
    const UINT modality = owner ? MB_APPLMODAL : MB_TASKMODAL;
    const int answer = MessageBoxW(owner, asWide(text), asWide(title), static_cast<UINT>(style) | modality);
    switch (answer) {
    case IDYES:
        return ui::MessageAnswer::yes;
    case IDNO:
        return ui::MessageAnswer::no;
    case IDOK:
        return ui::MessageAnswer::ok;
    default:
        return ui::MessageAnswer::cancel;
    }
}

void MessageBoxPrompts::log(const std::u16string& text) {
    OutputDebugStringW(asWide(text + u"\n"));
}

} // namespace orv::windows
