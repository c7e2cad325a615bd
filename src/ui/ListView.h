#pragma once

#include "ui/Control.h"

#include <vector>

namespace orv::ui {

enum class ListViewMode : std::int16_t { largeIcons = 0, smallIcons = 1, list = 2, details = 3 };

/// A list view of items with key, text and tag; at most one is selected. Positions count from 1; one outside of the
/// list raises AutomationError 35600. Keys are unique, case-sensitive, and may be empty.
class ListView final : public Control {
  public:
    struct Item {
        std::u16string key;
        std::u16string text;
        std::u16string tag;
        std::vector<std::u16string> subItems;
    };
    using Control::Control;
    std::u16string_view typeName() const override { return u"ListView"; }

    const std::vector<Item>& items() const noexcept { return items_; }
    int count() const noexcept { return static_cast<int>(items_.size()); }
    /// Adds at the end; AutomationError 35602 when the key is taken.
    void addItem(Item item);
    /// Replaces an item; AutomationError 35602 when another one has its key.
    void setItem(int position, Item item);
    /// Removes an item without an event. The selection stays with its item; nothing is selected when that one went.
    void removeItem(int position);
    /// Removes all items; nothing is selected then.
    void clear();
    /// 1-based position of a key, 0 when absent or when the key is empty.
    int find(std::u16string_view key) const noexcept;

    /// 1-based; 0 is none.
    int selected() const noexcept { return selected_; }
    /// Null when nothing is selected; valid until the list changes.
    const Item* selectedItem() const noexcept;
    /// Selects from code: no event. 0 selects nothing.
    void setSelected(int position);
    /// The user selects an item: raises `itemClick`, also when it was selected already; nothing when the list is
    /// disabled or hidden.
    void userSelect(int position);

    ListViewMode view() const noexcept { return view_; }
    void setView(ListViewMode view);
    const std::vector<std::u16string>& columnHeaders() const noexcept { return columnHeaders_; }
    void setColumnHeaders(std::vector<std::u16string> headers);

    Signal<> itemClick;

  private:
    void checkPosition(int position) const;
    void checkKeyFree(std::u16string_view key, int exceptPosition) const;

    std::vector<Item> items_;
    std::vector<std::u16string> columnHeaders_;
    int selected_ = 0;
    ListViewMode view_ = ListViewMode::largeIcons;
};

} // namespace orv::ui
