#pragma once

#include "ui/Control.h"
#include "windows/views/FilterWindow.h"
#include "windows/views/Gdi.h"
#include "windows/views/Window.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace orv::windows {

/// What all views of one control share.
struct Dressing {
    explicit Dressing(const Appearance& appearance);

    Appearance look;
    UniqueFont font;
    COLORREF back;     ///< of the surface
    UniqueBrush brush; ///< of that colour
    void setBack(COLORREF color);
    void setLook(const Appearance& appearance);
    /// A text of the views' own in the user's language, with "%1" replaced; may be empty.
    std::function<std::u16string(std::u16string_view messageTemplate, std::u16string_view first)> translated;
    /// The server's day, asked anew at each call; nothing when it cannot be had. May be empty.
    std::function<std::optional<SYSTEMTIME>()> today;
    /// Pixels of a measure given at 96 dots an inch.
    int px(int at96) const noexcept { return MulDiv(at96, look.dpi, 96); }
};

/// The view of one ui model. Models of control arrays may go while their views live: a view asks `modelLives` before it
/// touches its model, and the surface does away with views whose models are gone.
class ControlView {
  public:
    ControlView(ui::Control& model, std::shared_ptr<Dressing> dressing);
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;
    virtual ~ControlView() = default;

    virtual std::shared_ptr<Window> window() const = 0;
    HWND handle() const { return window()->hwnd(); }
    bool modelLives() const noexcept { return !life_.expired(); }
    const ui::Control* model() const noexcept { return &model_; }
    /// Creates the window in its container and subscribes to the model.
    void attach(HWND parent);
    /// Takes over place, visibility, enabledness and content of the model.
    void refresh();
    /// After the dressing has changed.
    virtual void redress();
    /// Whether the view is a stop for the Tab key.
    virtual bool takesFocus() const { return true; }
    /// Whether the view wants a key for itself, before the surface and the container look at it.
    virtual bool wantsKey(const MSG& message) const;
    /// Does what a key that the view wants asks for before its window is told; true when the window need not be.
    virtual bool takeKey(MSG& message);
    /// Tab leads out of the view: for one that keeps the key for itself as long as it can.
    std::function<void(bool forward)> onTabOut;
    /// The caption whose "&x" makes Alt+x press the view; null without one.
    virtual const std::u16string* caption() const { return nullptr; }
    virtual void pressByMnemonic() {}

  protected:
    virtual void open(HWND parent) = 0;
    virtual void showContent() = 0;
    virtual RECT place() const;
    bool ready() const { return modelLives() && handle() != nullptr; }
    /// True while the view copies its model: what its window reports then is not the user's doing.
    bool refreshing() const noexcept { return refreshing_ > 0; }
    const Dressing& dressing() const noexcept { return *dressing_; }
    void keep(ui::Subscription subscription) { subscriptions_.push_back(std::move(subscription)); }

  private:
    ui::Control& model_;
    std::shared_ptr<Dressing> dressing_;
    std::weak_ptr<const void> life_;
    std::vector<ui::Subscription> subscriptions_;
    int refreshing_ = 0;
};

/// Makes the view of any constituent control but grids and containers.
std::shared_ptr<ControlView> makeStandardView(ui::Control& model, const std::shared_ptr<Dressing>& dressing);

} // namespace orv::windows
