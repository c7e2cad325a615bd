#pragma once

#include "ui/Control.h"

#include <vector>

namespace orv::ui {

/// A toolbar; buttons are addressed by 1-based position or by key and may carry a menu.
class Toolbar final : public Control {
  public:
    struct MenuItem {
        std::u16string key;
        std::u16string text;
    };
    struct ToolButton {
        std::u16string key;
        std::u16string caption;
        std::u16string toolTip;
        bool enabled = true;
        std::vector<MenuItem> menu;
    };
    using Control::Control;
    std::u16string_view typeName() const override { return u"Toolbar"; }

    const std::vector<ToolButton>& buttons() const noexcept { return buttons_; }
    int count() const noexcept { return static_cast<int>(buttons_.size()); }
    /// Adds a button at the end; AutomationError 35602 when the key is taken (an empty key never is).
    void addButton(ToolButton button);
    /// Replaces a button's content (1-based); AutomationError 35600 beyond the buttons, 35602 when another button has
    /// the key.
    void setButton(int position, ToolButton button);

    /// A click by key, as the user does; AutomationError 35601 for an unknown key; nothing when the button or the
    /// whole bar is disabled, or the bar is hidden.
    void userClick(std::u16string_view key);
    /// The user picks an item of a button's menu; as userClick, for the button and the item.
    void userMenu(std::u16string_view key, std::u16string_view menuKey);

    Signal<std::u16string> buttonClick;               ///< button key
    Signal<std::u16string, std::u16string> menuClick; ///< button key, menu item key

  private:
    const ToolButton& buttonOf(std::u16string_view key) const;
    void checkKeyFree(std::u16string_view key, int exceptPosition) const;

    std::vector<ToolButton> buttons_;
};

} // namespace orv::ui
