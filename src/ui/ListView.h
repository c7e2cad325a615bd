#pragma once

#include "ui/Control.h"

#include <vector>

namespace orv::ui {

enum class ListViewMode : std::int16_t { largeIcons = 0, smallIcons = 1, list = 2, details = 3 };

/// A list view of items with key, text and tag; at most one is selected.
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
    void setItem(int position, Item item);
    void removeItem(int position);
    void clear();
    /// 1-based position of a key, 0 when absent.
    int find(std::u16string_view key) const noexcept;

    /// 1-based; 0 is none.
    int selected() const noexcept { return selected_; }
    const Item* selectedItem() const noexcept;
    /// Selects from code: no event. 0 selects nothing.
    void setSelected(int position);
    /// The user selects an item: raises `itemClick`.
    void userSelect(int position);

    ListViewMode view() const noexcept { return view_; }
    void setView(ListViewMode view);
    const std::vector<std::u16string>& columnHeaders() const noexcept { return columnHeaders_; }
    void setColumnHeaders(std::vector<std::u16string> headers);

    Signal<> itemClick;

  private:
    std::vector<Item> items_;
    std::vector<std::u16string> columnHeaders_;
    int selected_ = 0;
    ListViewMode view_ = ListViewMode::largeIcons;
};

} // namespace orv::ui
