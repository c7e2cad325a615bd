#include "ui/Control.h"

#include <algorithm>
#include <string>
#include <utility>

namespace orv::ui {

namespace {

/// Assigns and tells whether that changed anything.
template <class T>
bool assign(T& target, T value) {
    if (target == value)
        return false;
    target = std::move(value);
    return true;
}

} // namespace

Control::Control(std::u16string name, std::optional<int> index) : name_(std::move(name)), index_(index) {}

std::u16string Control::fullName() const {
    if (!index_)
        return name_;
    std::u16string full = name_ + u"(";
    for (const char digit : std::to_string(*index_))
        full += static_cast<char16_t>(digit);
    return full + u")";
}

void Control::setVisible(bool visible) {
    if (assign(visible_, visible))
        changed.raise();
}

void Control::setEnabled(bool enabled) {
    if (assign(enabled_, enabled))
        changed.raise();
}

void Control::setTag(std::u16string tag) {
    // No view shows a tag.
    tag_ = std::move(tag);
}

void Control::setToolTip(std::u16string toolTip) {
    if (assign(toolTip_, std::move(toolTip)))
        changed.raise();
}

void Control::setBounds(const Rect& bounds) {
    if (assign(bounds_, bounds))
        changed.raise();
}

void Control::setBackColor(std::optional<std::uint32_t> color) {
    if (assign(backColor_, color))
        changed.raise();
}

void Control::setFocus() {
    focusRequested.raise();
}

void CaptionControl::setCaption(std::u16string caption) {
    if (assign(caption_, std::move(caption)))
        changed.raise();
}

void Button::press() {
    if (enabled())
        click.raise();
}

void CheckBox::setValue(CheckState value) {
    if (!assign(value_, value))
        return;
    const auto alive = lifetime();
    changed.raise();
    if (!alive.expired())
        click.raise();
}

void CheckBox::userClick() {
    if (enabled() && visible())
        setValue(value_ == CheckState::unchecked ? CheckState::checked : CheckState::unchecked);
}

void PictureBox::setTopTwips(int twips) {
    if (assign(topTwips_, twips))
        changed.raise();
}

void ScrollBar::setMaximum(int maximum) {
    if (!assign(maximum_, std::max(maximum, 0)))
        return;
    const auto alive = lifetime();
    changed.raise();
    if (!alive.expired())
        setValue(value_);
}

void ScrollBar::setValue(int value) {
    if (!assign(value_, std::clamp(value, 0, maximum_)))
        return;
    const auto alive = lifetime();
    changed.raise();
    if (!alive.expired())
        change.raise();
}

void TextBox::setText(std::u16string text) {
    if (!assign(text_, std::move(text)))
        return;
    const auto alive = lifetime();
    changed.raise();
    if (!alive.expired())
        change.raise();
}

} // namespace orv::ui
