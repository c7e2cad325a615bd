#include "ui/ListView.h"

#include "automation/AutomationError.h"
#include "ui/ErrorNumbers.h"

#include <utility>

namespace orv::ui {

using automation::AutomationError;

void ListView::addItem(Item item) {
    checkKeyFree(item.key, 0);
    items_.push_back(std::move(item));
    changed.raise();
}

void ListView::setItem(int position, Item item) {
    checkPosition(position);
    checkKeyFree(item.key, position);
    items_[static_cast<std::size_t>(position - 1)] = std::move(item);
    changed.raise();
}

void ListView::removeItem(int position) {
    checkPosition(position);
    items_.erase(items_.begin() + (position - 1));
    if (selected_ == position)
        selected_ = 0;
    else if (selected_ > position)
        --selected_;
    changed.raise();
}

void ListView::clear() {
    items_.clear();
    selected_ = 0;
    changed.raise();
}

int ListView::find(std::u16string_view key) const noexcept {
    if (key.empty())
        return 0;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        if (items_[i].key == key)
            return static_cast<int>(i) + 1;
    }
    return 0;
}

const ListView::Item* ListView::selectedItem() const noexcept {
    return selected_ == 0 ? nullptr : &items_[static_cast<std::size_t>(selected_ - 1)];
}

void ListView::setSelected(int position) {
    if (position != 0)
        checkPosition(position);
    if (std::exchange(selected_, position) != position)
        changed.raise();
}

void ListView::userSelect(int position) {
    checkPosition(position);
    if (!enabled() || !visible())
        return;
    const auto alive = lifetime();
    setSelected(position);
    if (!alive.expired())
        itemClick.raise();
}

void ListView::setView(ListViewMode view) {
    if (std::exchange(view_, view) != view)
        changed.raise();
}

void ListView::setColumnHeaders(std::vector<std::u16string> headers) {
    columnHeaders_ = std::move(headers);
    changed.raise();
}

void ListView::checkPosition(int position) const {
    if (position < 1 || position > count())
        throw AutomationError::runtime(errorNumber::indexOutOfBounds);
}

void ListView::checkKeyFree(std::u16string_view key, int exceptPosition) const {
    if (const int holder = find(key); holder != 0 && holder != exceptPosition)
        throw AutomationError::runtime(errorNumber::keyNotUnique);
}

} // namespace orv::ui
