#include "windows/views/ControlView.h"

#include "windows/com/Handles.h"

namespace orv::windows {

namespace {

/// Counts a scope, for as long as the counter's owner lives.
class Counted {
  public:
    Counted(int& counter, std::shared_ptr<Window> owner) : counter_(counter), owner_(std::move(owner)) { ++counter_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --counter_; }

  private:
    int& counter_;
    std::shared_ptr<Window> owner_;
};

} // namespace

Dressing::Dressing(const Appearance& appearance)
    : look(appearance), font(CreateFontIndirectW(&appearance.font)), back(appearance.back) {
    setBack(appearance.back);
}

void Dressing::setLook(const Appearance& appearance) {
    look = appearance;
    font = UniqueFont(CreateFontIndirectW(&appearance.font));
    setBack(appearance.back);
}

void Dressing::setBack(COLORREF color) {
    back = color;
    brush = UniqueBrush(CreateSolidBrush(color));
}

ControlView::ControlView(ui::Control& model, std::shared_ptr<Dressing> dressing)
    : model_(model), dressing_(std::move(dressing)) {}

void ControlView::attach(HWND parent) {
    open(parent);
    // The token is held by the subscription alone, so it goes with the model's signal.
    auto token = std::make_shared<char>();
    life_ = token;
    keep(model_.changed.subscribe([this, token] { refresh(); }));
    keep(model_.focusRequested.subscribe([this] {
        if (ready() && IsWindowVisible(handle()) && IsWindowEnabled(handle()))
            SetFocus(handle());
    }));
    redress();
}

RECT ControlView::place() const {
    const ui::Rect& r = model_.bounds();
    return {r.left, r.top, r.left + r.width, r.top + r.height};
}

void ControlView::refresh() {
    if (!ready())
        return;
    const Counted scope(refreshing_, window());
    const RECT r = place();
    const HWND self = handle();
    SetWindowPos(self, nullptr, r.left, r.top, r.right - r.left, r.bottom - r.top, SWP_NOZORDER | SWP_NOACTIVATE);
    if ((IsWindowEnabled(self) != FALSE) != model_.enabled())
        EnableWindow(self, model_.enabled());
    showContent();
    const bool shown = (GetWindowLongW(self, GWL_STYLE) & WS_VISIBLE) != 0;
    if (shown != model_.visible())
        ShowWindow(self, model_.visible() ? SW_SHOWNA : SW_HIDE);
}

void ControlView::redress() {
    if (!ready())
        return;
    SendMessageW(handle(), WM_SETFONT, reinterpret_cast<WPARAM>(dressing_->font.get()), FALSE);
    refresh();
    InvalidateRect(handle(), nullptr, TRUE);
}

bool ControlView::takeKey(MSG&) {
    return false;
}

bool ControlView::wantsKey(const MSG& message) const {
    switch (message.wParam) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_SPACE:
        return true;
    default:
        return false;
    }
}

} // namespace orv::windows
