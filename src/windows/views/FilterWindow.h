#pragma once

#include <windows.h>

#include <unknwn.h>

#include <functional>
#include <memory>

namespace orv::control {
class Filter;
}

namespace orv::windows {

/// How the control is to look: what its host's ambient properties say.
struct Appearance {
    LOGFONTW font{}; ///< the height is in pixels at `dpi`
    COLORREF back = 0;
    COLORREF fore = 0;
    int dpi = 96;
};

class FilterSurface;

/// The filter control on the screen: its surface with a child window for every constituent control. It draws the ui
/// models and feeds the user's actions into them. To be used on the thread that created it; any callback may destroy
/// it.
class FilterWindow {
  public:
    /// Creates the windows as a child of `parent`, laid out and shown. The filter must outlive the windows: it belongs
    /// to `control`, which each of their messages keeps alive until it is handled; null when somebody else sees to
    /// that. AutomationError 7 when a window cannot be created.
    FilterWindow(HWND parent, const RECT& bounds, control::Filter& filter, IUnknown* control, const Appearance& look);
    FilterWindow(const FilterWindow&) = delete;
    FilterWindow& operator=(const FilterWindow&) = delete;
    /// Destroys the windows; the filter stays.
    ~FilterWindow();

    /// The surface; null when the parent has been destroyed.
    HWND hwnd() const;
    /// Moves the surface within its parent and lays the control out again.
    void move(const RECT& bounds);
    void setAppearance(const Appearance& look);
    void show(bool visible);
    /// A disabled surface takes no input and looks as usual: for hosts in design mode.
    void enable(bool enabled);
    /// Offers a message before it is dispatched. True when the control has taken it (Tab between its parts, keys that
    /// a part wants, accelerators); false leaves it to the container.
    bool translateKey(MSG& message);
    /// Goes to the part whose caption has that access key and presses it; false when no part in sight has it.
    bool pressAccessKey(char16_t letter);
    /// Gives the focus to the first or last part in tab order. False when no part can take it.
    bool takeFocus(bool last);
    bool focusIsInside() const;

    std::function<void()> onFocus;
    std::function<void()> onLostFocus;
    /// Tab past the last part (forward) or the first one.
    std::function<void(bool forward)> onTabOut;

  private:
    std::shared_ptr<FilterSurface> surface_;
};

/// Draws the control without windows, on a screen, a bitmap or a metafile. Lays the filter out at the size of `bounds`.
void paintInactive(HDC dc, const RECT& bounds, control::Filter& filter, const Appearance& look);

} // namespace orv::windows
