#pragma once

#include "ole/Automation.h"
#include "ole/Site.h"

#include <ocidl.h>

namespace orv::ole {

/// A child window of a dialog that holds one ActiveX control in its client area. To the dialog it is a control like any
/// other: a tab stop, which hands the focus on to the ActiveX control.
///
/// The owner's message loop offers every message to `translate` before IsDialogMessage.
class ControlWindow final : private SiteOwner {
  public:
    static constexpr const wchar_t* windowClass = L"OrvOleSite";

    /// Creates the window and activates a new control in it; raises Failure. `parent` is the dialog, `id` the window's
    /// control id.
    ControlWindow(HWND parent, int id, Object control, Frame& frame);
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    ~ControlWindow();

    HWND hwnd() const noexcept { return window_; }
    /// The control's own automation interface.
    const Object& control() const noexcept { return control_; }
    /// The control's window, null while it has none.
    HWND controlWindow() const noexcept;

    /// Gives the keyboard to the control, or takes it.
    void activate();
    void deactivate() noexcept;

    /// Whether a message of the dialog was one for the control: a key that it wants, or one of its access keys.
    bool translate(MSG& message) noexcept;

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void open();
    void close() noexcept;
    void fit() noexcept;
    void uiActivate() noexcept;
    bool isMnemonic(MSG& message) const noexcept;

    HWND siteWindow() const noexcept override { return window_; }
    bool offerKey(const MSG& message) noexcept override;
    void controlInfoChanged() noexcept override;

    HWND window_ = nullptr;
    Microsoft::WRL::ComPtr<Frame> frame_;
    Microsoft::WRL::ComPtr<Site> site_;
    Object control_;
    CONTROLINFO keys_{};
};

} // namespace orv::ole
