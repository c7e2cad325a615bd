#include "play/RecordingPrompts.h"

namespace orv::play {

namespace {

// The low four bits of a style choose the buttons; 0 is a lone OK.
constexpr std::int32_t buttonBits = 0xF;

} // namespace

ui::MessageAnswer RecordingPrompts::message(const std::u16string& text, std::int32_t style,
                                            const std::u16string& title) {
    shown_.push_back({text, title, style});
    if ((style & buttonBits) == ui::messageStyle::okOnly)
        return ui::MessageAnswer::ok;
    if (answers_.empty()) {
        unanswered_.push_back(text);
        return ui::MessageAnswer::no;
    }
    const ui::MessageAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

} // namespace orv::play
