#include "play/RecordingPrompts.h"

#include "automation/Text.h"

namespace orv::play {

namespace {

using automation::toUtf8;

// The low four bits of a style choose the buttons; 0 is a lone OK.
constexpr std::int32_t buttonBits = 0xF;

/// The control of a dialog by name and type; null when there is none.
template <class Control>
Control* find(ui::Dialog& dialog, const std::u16string& name) {
    for (ui::Control* control : dialog.controls()) {
        if (control->fullName() == name)
            return dynamic_cast<Control*>(control);
    }
    return nullptr;
}

/// Does in a dialog what the answer says; returns the name of a control that is not there.
std::u16string act(ui::Dialog& dialog, const DialogAnswer& answer) {
    for (const auto& [name, text] : answer.texts) {
        auto* box = find<ui::TextBox>(dialog, name);
        if (!box)
            return name;
        box->setText(text);
    }
    for (const auto& [name, checked] : answer.ticks) {
        auto* box = find<ui::CheckBox>(dialog, name);
        if (!box)
            return name;
        if (box->isChecked() != checked)
            box->userClick();
    }
    auto* button = answer.press.empty() ? &dialog.defaultButton() : find<ui::Button>(dialog, answer.press);
    if (!button)
        return answer.press;
    button->press();
    return {};
}

} // namespace

ui::MessageAnswer RecordingPrompts::message(const std::u16string& text, std::int32_t style,
                                            const std::u16string& title) {
    messages_.push_back({text, title, style});
    if ((style & buttonBits) == ui::messageStyle::okOnly)
        return ui::MessageAnswer::ok;
    if (answers_.empty()) {
        problems_.push_back("the question \"" + toUtf8(text) +
                            R"(" has no answer: queue one before with {"answer": "yes"} or {"answer": "no"})");
        return ui::MessageAnswer::no;
    }
    const ui::MessageAnswer answer = answers_.front();
    answers_.pop_front();
    return answer;
}

void RecordingPrompts::showModal(ui::Dialog& dialog) {
    dialogs_.push_back(dialog.name());
    while (dialog.isOpen()) {
        if (dialogAnswers_.empty()) {
            problems_.push_back("the dialog " + toUtf8(dialog.name()) +
                                R"( has no answer: queue one before with {"answer": {"dialog": ...}})");
            dialog.close();
            return;
        }
        const DialogAnswer answer = std::move(dialogAnswers_.front());
        dialogAnswers_.pop_front();
        const std::u16string missing = act(dialog, answer);
        if (!missing.empty()) {
            problems_.push_back("the dialog " + toUtf8(dialog.name()) + " has no control \"" + toUtf8(missing) +
                                "\" of that kind");
            dialog.close();
        }
    }
}

} // namespace orv::play
