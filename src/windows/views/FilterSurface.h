#pragma once

#include "control/FilterControls.h"
#include "windows/views/ControlView.h"

#include <memory>
#include <vector>

namespace orv::windows {

/// The control's own window: keeps a view for every constituent control, in tab order.
class FilterSurface final : public ContainerWindow {
  public:
    /// Messages keep `control` alive, whose part the filter is.
    FilterSurface(control::Filter& filter, IUnknown* control, const Appearance& look, FilterWindow& owner);
    ~FilterSurface() override;

    void open(HWND parent, const RECT& bounds);
    /// The owner goes, and the control perhaps with it: nobody is to be told of anything any more.
    void disown() noexcept;
    void move(const RECT& bounds);
    void setAppearance(const Appearance& look);
    bool translateKey(MSG& message);
    bool pressAccessKey(char16_t letter);
    bool takeFocus(bool last);
    bool focusIsInside() const;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void onFocus(bool has, HWND to) override;

  private:
    void layOut();
    /// Gives every constituent control its view, and does away with views of controls that are gone.
    void matchViews();
    /// Grids are known to assistive programs by their pages.
    void nameGrids();
    std::shared_ptr<ControlView> viewFor(ui::Control& model, std::vector<std::shared_ptr<ControlView>>& old);
    HWND containerOf(const ui::Control& model) const;
    /// Has `matchViews` run once the current event is over.
    void matchLater();
    void surfaceChanged();
    std::shared_ptr<ControlView> viewWith(HWND window) const;
    bool isStop(const ControlView& view) const;
    bool goToNext(bool forward);
    /// Shows the next or previous page of the tab strip; false where there is but one.
    bool goToPage(bool forward);
    /// False in popups, which have their own use for keys.
    bool isWithinFrame(HWND window) const;

    control::Filter& filter_;
    FilterWindow* owner_;
    std::shared_ptr<Dressing> dressing_;
    std::vector<std::shared_ptr<ControlView>> views_;
    std::vector<ui::Subscription> subscriptions_;
    std::weak_ptr<Window> lastFocus_;
    bool hasFocus_ = false;
    bool matchPending_ = false;
};

} // namespace orv::windows
