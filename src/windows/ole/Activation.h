#pragma once

#include "windows/ole/OleSite.h"
#include "windows/views/FilterWindow.h"

#include <memory>

namespace orv::windows {

/// Where the keyboard goes when the control becomes the active one.
enum class FocusStop { keep, first, last };

/// The states of an embedded control: loaded, active in place (it has a window), UI active (it has the keyboard).
///
/// Every step calls the container, which may answer with another step, the last release included. So each method first
/// sets the new state and then tells of it, through references of its own.
class Activation {
  public:
    Activation(OleSite& site, control::Filter& filter) noexcept : site_(site), filter_(filter) {}
    Activation(const Activation&) = delete;
    Activation& operator=(const Activation&) = delete;
    /// Lets go of window and container without a word to the latter.
    ~Activation();

    /// Puts the control into another container, or into none; it leaves the former one first.
    void setClient(IOleClientSite* client);

    /// Shows the control's window within the container. E_UNEXPECTED without a container, E_FAIL when it refuses;
    /// raises AutomationError when the window cannot be made.
    HRESULT activateInPlace();
    /// Makes the control the container's active object. While a form is designed it becomes active in place only.
    HRESULT activateUi(FocusStop stop);
    HRESULT deactivateUi();
    HRESULT deactivateInPlace();
    HRESULT hide();

    bool isInPlaceActive() const noexcept { return static_cast<bool>(site_.place); }
    bool isUiActive() const noexcept { return isUiActive_; }

    /// Both in pixels of the container's window; what is outside of `clip` is not drawn.
    HRESULT setRects(const RECT& position, const RECT& clip);
    /// Reads the ambient properties again and takes them over.
    void refreshAmbients();
    /// Off while the container shows a modal window.
    void enableModeless(bool enabled);
    /// A key message that the container's message loop offers; S_FALSE when nobody took it.
    HRESULT translateKey(MSG& message);
    /// The letters that Alt+letter presses a part with.
    std::u16string accessKeys() const;
    HRESULT pressAccessKey(char16_t letter);

    /// Null while the control is not active.
    HWND hwnd() const noexcept;
    /// Gives the constituent controls the place that they have in the window, or in a picture of the extent.
    void layOut(const SIZEL& extent);

  private:
    HRESULT openWindow(const ComPtr<IOleInPlaceSite>& place);
    void closeWindow();
    HRESULT announce();
    void applyLiveliness();
    void onFocus();
    void onLostFocus();
    void onTabOut();

    OleSite& site_;
    control::Filter& filter_;
    std::unique_ptr<FilterWindow> window_;
    bool isUiActive_ = false;
    bool isModeless_ = true;
    bool translates_ = false; ///< a key of `translateKey` is under way
    bool tabsOut_ = false;    ///< and it leads out of the control
};

} // namespace orv::windows
