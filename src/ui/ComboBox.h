#pragma once

#include "ui/Control.h"

#include <vector>

namespace orv::ui {

/// A drop-down list: the text is that of the selected item.
class ComboBox final : public Control {
  public:
    using Control::Control;
    std::u16string_view typeName() const override { return u"ComboBox"; }

    const std::vector<std::u16string>& items() const noexcept { return items_; }
    int count() const noexcept { return static_cast<int>(items_.size()); }
    /// Adds an item at the end; the selection stays.
    void addItem(std::u16string item);
    /// Removes all items; the selection becomes -1 without a click.
    void clear();
    /// The selected position (from 0), -1 when nothing is selected.
    int listIndex() const noexcept { return listIndex_; }
    /// Selects from code or as the user does; raises `click` before it returns, also when the item was selected
    /// already. -1 selects nothing (with a click as well). Any other position outside of the list raises
    /// AutomationError 380 (invalid property value).
    void setListIndex(int index);
    /// The user picks an item: as setListIndex, but nothing happens when the box is disabled or hidden.
    void userSelect(int index);
    /// The text of the selected item, "" when nothing is selected.
    const std::u16string& text() const noexcept;

    Signal<> click;

  private:
    std::vector<std::u16string> items_;
    int listIndex_ = -1;
};

} // namespace orv::ui
