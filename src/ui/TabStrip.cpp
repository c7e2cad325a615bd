#include "ui/TabStrip.h"

#include "automation/AutomationError.h"
#include "ui/ErrorNumbers.h"

#include <algorithm>
#include <utility>

namespace orv::ui {

using automation::AutomationError;

void TabStrip::addTab(std::u16string key, std::u16string caption) {
    if (!key.empty() && std::ranges::find(tabs_, key, &Tab::key) != tabs_.end())
        throw AutomationError::runtime(errorNumber::keyNotUnique);
    tabs_.push_back({std::move(key), std::move(caption)});
    selected_ = std::max(selected_, 1);
    changed.raise();
}

void TabStrip::removeTab(std::u16string_view key) {
    const auto tab = std::ranges::find(tabs_, key, &Tab::key);
    if (tab == tabs_.end())
        throw AutomationError::runtime(errorNumber::elementNotFound);
    const int position = static_cast<int>(tab - tabs_.begin()) + 1;
    tabs_.erase(tab);
    if (position == selected_)
        selected_ = tabs_.empty() ? 0 : 1;
    else if (position < selected_)
        --selected_;
    changed.raise();
}

void TabStrip::setTabCaption(int position, std::u16string caption) {
    checkPosition(position);
    tabs_[static_cast<std::size_t>(position - 1)].caption = std::move(caption);
    changed.raise();
}

std::u16string_view TabStrip::selectedKey() const noexcept {
    return selected_ == 0 ? std::u16string_view{} : tabs_[static_cast<std::size_t>(selected_ - 1)].key;
}

void TabStrip::select(int position) {
    checkPosition(position);
    const auto alive = lifetime();
    if (std::exchange(selected_, position) != position)
        changed.raise();
    if (!alive.expired())
        click.raise();
}

void TabStrip::userSelect(int position) {
    if (!enabled() || !visible())
        return;
    checkPosition(position);
    const auto alive = lifetime();
    bool cancel = false;
    beforeClick.raise(cancel);
    if (!alive.expired() && !cancel && position <= static_cast<int>(tabs_.size()))
        select(position);
}

void TabStrip::checkPosition(int position) const {
    if (position < 1 || position > static_cast<int>(tabs_.size()))
        throw AutomationError::runtime(errorNumber::indexOutOfBounds);
}

} // namespace orv::ui
