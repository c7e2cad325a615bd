#include "ui/Toolbar.h"

#include "automation/AutomationError.h"
#include "ui/ErrorNumbers.h"

#include <algorithm>
#include <utility>

namespace orv::ui {

using automation::AutomationError;

void Toolbar::addButton(ToolButton button) {
    checkKeyFree(button.key, 0);
    buttons_.push_back(std::move(button));
    changed.raise();
}

void Toolbar::setButton(int position, ToolButton button) {
    if (position < 1 || position > count())
        throw AutomationError::runtime(errorNumber::indexOutOfBounds);
    checkKeyFree(button.key, position);
    buttons_[static_cast<std::size_t>(position - 1)] = std::move(button);
    changed.raise();
}

void Toolbar::userClick(std::u16string_view key) {
    const ToolButton& button = buttonOf(key);
    if (enabled() && visible() && button.enabled)
        buttonClick.raise(button.key);
}

void Toolbar::userMenu(std::u16string_view key, std::u16string_view menuKey) {
    const ToolButton& button = buttonOf(key);
    const auto item = std::ranges::find(button.menu, menuKey, &MenuItem::key);
    if (item == button.menu.end())
        throw AutomationError::runtime(errorNumber::elementNotFound);
    if (enabled() && visible() && button.enabled)
        menuClick.raise(button.key, item->key);
}

const Toolbar::ToolButton& Toolbar::buttonOf(std::u16string_view key) const {
    const auto button = std::ranges::find(buttons_, key, &ToolButton::key);
    if (button == buttons_.end())
        throw AutomationError::runtime(errorNumber::elementNotFound);
    return *button;
}

void Toolbar::checkKeyFree(std::u16string_view key, int exceptPosition) const {
    if (key.empty())
        return;
    const auto holder = std::ranges::find(buttons_, key, &ToolButton::key);
    if (holder != buttons_.end() && holder - buttons_.begin() + 1 != exceptPosition)
        throw AutomationError::runtime(errorNumber::keyNotUnique);
}

} // namespace orv::ui
