#pragma once

#include "ui/Control.h"

#include <vector>

namespace orv::ui {

/// A strip of tabs. Tabs are addressed by 1-based position or by key; AutomationError 35600 beyond the tabs.
class TabStrip final : public Control {
  public:
    struct Tab {
        std::u16string key;
        std::u16string caption;
    };
    using Control::Control;
    std::u16string_view typeName() const override { return u"TabStrip"; }

    const std::vector<Tab>& tabs() const noexcept { return tabs_; }
    /// Adds a tab at the end; the first one is selected at once, without a click. AutomationError 35602 when the key
    /// is taken (an empty key never is).
    void addTab(std::u16string key, std::u16string caption);
    /// Removes the tab of that key; AutomationError 35601 (element not found) when there is none. When the selected
    /// tab goes, the first one is selected, without a click; otherwise the selection stays with its tab.
    void removeTab(std::u16string_view key);
    void setTabCaption(int position, std::u16string caption);
    /// 1-based; 0 when there is no tab.
    int selected() const noexcept { return selected_; }
    /// The selected tab's key, "" when there is none.
    std::u16string_view selectedKey() const noexcept;
    /// Selects and raises `click`, also from code and when the tab was selected already.
    void select(int position);
    /// The user clicks a tab: as select, but nothing happens when the strip is disabled or hidden, or when a handler of
    /// `beforeClick` cancels.
    void userSelect(int position);

    Signal<bool&> beforeClick; ///< cancel
    Signal<> click;

  private:
    void checkPosition(int position) const;

    std::vector<Tab> tabs_;
    int selected_ = 0;
};

} // namespace orv::ui
