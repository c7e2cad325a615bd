#pragma once

#include "ui/ComboBox.h"
#include "windows/com/Handles.h"
#include "windows/views/ControlView.h"
#include "windows/views/SurfaceColor.h"

#include <string_view>

namespace orv::windows {

/// What views of common controls share: the window and the typed model.
template <class Model>
class NativeView : public ControlView, public Window {
  public:
    NativeView(Model& model, std::shared_ptr<Dressing> dressing)
        : ControlView(model, std::move(dressing)), typed_(model) {}
    std::shared_ptr<Window> window() const override { return std::const_pointer_cast<Window>(shared_from_this()); }

  protected:
    Model& typed() const noexcept { return typed_; }
    void createControl(HWND parent, const wchar_t* controlClass, DWORD style, DWORD exStyle = 0) {
        Creation how;
        how.controlClass = controlClass;
        how.style = WS_CHILD | WS_CLIPSIBLINGS | style;
        how.exStyle = exStyle;
        how.parent = parent;
        create(how);
    }
    /// Sets the window's text where it differs, so that nothing is drawn twice.
    void showText(const std::u16string& text) {
        std::u16string shown(static_cast<std::size_t>(GetWindowTextLengthW(hwnd())), u'\0');
        GetWindowTextW(hwnd(), reinterpret_cast<wchar_t*>(shown.data()), static_cast<int>(shown.size() + 1));
        if (shown != text)
            SetWindowTextW(hwnd(), asWide(text));
    }
    LRESULT onSurface(WPARAM dc) const {
        SetBkColor(reinterpret_cast<HDC>(dc), dressing().back);
        SetTextColor(reinterpret_cast<HDC>(dc), surfaceTextColor(dressing().look.fore));
        return reinterpret_cast<LRESULT>(dressing().brush.get());
    }

  private:
    Model& typed_;
};

/// The part of an item that is shown: padded items hide their key.
std::u16string captionOf(std::u16string_view item);

std::shared_ptr<ControlView> makeTabStripView(ui::Control& model, const std::shared_ptr<Dressing>& dressing);
std::shared_ptr<ControlView> makeToolbarView(ui::Control& model, const std::shared_ptr<Dressing>& dressing);
std::shared_ptr<ControlView> makeListViewView(ui::Control& model, const std::shared_ptr<Dressing>& dressing);
std::shared_ptr<ControlView> makeGridView(ui::Control& model, const std::shared_ptr<Dressing>& dressing);
std::shared_ptr<ControlView> makePanelView(ui::Control& model, const std::shared_ptr<Dressing>& dressing);

} // namespace orv::windows
