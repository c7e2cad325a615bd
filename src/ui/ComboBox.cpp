#include "ui/ComboBox.h"

#include "automation/AutomationError.h"
#include "ui/ErrorNumbers.h"

#include <utility>

namespace orv::ui {

void ComboBox::addItem(std::u16string item) {
    items_.push_back(std::move(item));
    changed.raise();
}

void ComboBox::clear() {
    items_.clear();
    listIndex_ = -1;
    changed.raise();
}

void ComboBox::setListIndex(int index) {
    if (index < -1 || index >= count())
        throw automation::AutomationError::runtime(errorNumber::invalidPropertyValue);
    const auto alive = lifetime();
    if (std::exchange(listIndex_, index) != index)
        changed.raise();
    if (!alive.expired())
        click.raise();
}

void ComboBox::userSelect(int index) {
    if (enabled() && visible())
        setListIndex(index);
}

const std::u16string& ComboBox::text() const noexcept {
    static const std::u16string none;
    return listIndex_ < 0 ? none : items_[static_cast<std::size_t>(listIndex_)];
}

} // namespace orv::ui
