#include "windows/views/FilterSurface.h"

#include "control/Filter.h"
#include "windows/views/SurfaceColor.h"
#include "windows/views/UsualColumns.h"

#include <commctrl.h>

#include <algorithm>

namespace orv::windows {

namespace {

constexpr UINT matchViewsMessage = WM_APP + 1;

int widthOf(const RECT& r) {
    return static_cast<int>(r.right - r.left);
}
int heightOf(const RECT& r) {
    return static_cast<int>(r.bottom - r.top);
}

} // namespace

FilterSurface::FilterSurface(control::Filter& filter, const Appearance& look, FilterWindow& owner)
    : filter_(filter), owner_(&owner), dressing_(std::make_shared<Dressing>(look)) {}

FilterSurface::~FilterSurface() {
    subscriptions_.clear();
    views_.clear();
}

void FilterSurface::open(HWND parent, const RECT& bounds) {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TAB_CLASSES | ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES |
                                                     ICC_DATE_CLASSES | ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    Creation how;
    how.style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    how.exStyle = WS_EX_CONTROLPARENT;
    how.parent = parent;
    how.bounds = bounds;
    create(how);

    control::FilterControls& controls = filter_.controls();
    dressing_->setBack(surfaceColor(controls.UserControl, dressing_->look.back));
    const auto later = [this] { matchLater(); };
    const auto laterAt = [this](int, int) { matchLater(); };
    subscriptions_.push_back(controls.UserControl.changed.subscribe([this] { surfaceChanged(); }));
    subscriptions_.push_back(controls.cboClassType.click.subscribe(later));
    subscriptions_.push_back(controls.cboClassType.changed.subscribe(later));
    subscriptions_.push_back(controls.picPageBase.changed.subscribe(later));
    subscriptions_.push_back(controls.picPage.changed.subscribe(later));
    subscriptions_.push_back(controls.PicPan.changed.subscribe(later));
    // Whatever rebuilds the arrays of boxes fills the grids' lists anew.
    subscriptions_.push_back(controls.vsFilter.cellUpdated.subscribe(laterAt));
    setUsualColumns(controls);
    layOut();
    matchViews();
    ShowWindow(hwnd(), SW_SHOWNA);
}

void FilterSurface::layOut() {
    RECT client;
    if (hwnd() && GetClientRect(hwnd(), &client))
        filter_.resize(static_cast<int>(client.right), static_cast<int>(client.bottom), dressing_->look.dpi / 96.0);
}

void FilterSurface::move(const RECT& bounds) {
    SetWindowPos(hwnd(), nullptr, bounds.left, bounds.top, widthOf(bounds), heightOf(bounds),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    layOut();
    matchViews();
}

void FilterSurface::setAppearance(const Appearance& look) {
    *dressing_ = Dressing(look);
    dressing_->setBack(surfaceColor(filter_.controls().UserControl, look.back));
    layOut();
    const auto views = views_;
    for (const auto& view : views)
        view->redress();
    InvalidateRect(hwnd(), nullptr, TRUE);
}

void FilterSurface::surfaceChanged() {
    const COLORREF back = surfaceColor(filter_.controls().UserControl, dressing_->look.back);
    if (back != dressing_->back) {
        dressing_->setBack(back);
        RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
    matchLater();
}

void FilterSurface::matchLater() {
    if (!matchPending_ && hwnd())
        matchPending_ = PostMessageW(hwnd(), matchViewsMessage, 0, 0) != FALSE;
}

HWND FilterSurface::containerOf(const ui::Control& model) const {
    control::FilterControls& controls = filter_.controls();
    const ui::Control* container = nullptr;
    if (&model == &controls.picPage)
        container = &controls.picPageBase;
    else if (model.name() == controls.chkPage.name())
        container = &controls.picPage;
    else if (model.name() == controls.lblFilter.name() || model.name() == controls.cmbFilter.name())
        container = &controls.PicPan;
    else if (&model == &controls.vsOrder)
        container = &controls.picOrder;
    const auto found = std::ranges::find_if(views_, [&](const auto& view) { return view->model() == container; });
    return container && found != views_.end() ? (*found)->handle() : hwnd();
}

std::shared_ptr<ControlView> FilterSurface::viewFor(ui::Control& model,
                                                    std::vector<std::shared_ptr<ControlView>>& old) {
    const auto known = std::ranges::find_if(
        old, [&](const auto& view) { return view && view->model() == &model && view->modelLives() && view->handle(); });
    if (known != old.end())
        return std::exchange(*known, nullptr);
    auto view = makeStandardView(model, dressing_);
    view->attach(containerOf(model));
    return view;
}

void FilterSurface::matchViews() {
    matchPending_ = false;
    if (!hwnd())
        return;
    std::vector<std::shared_ptr<ControlView>> old = std::exchange(views_, {});
    control::FilterControls& controls = filter_.controls();
    controls.forEach([&](ui::Control& model) {
        if (&model != &controls.UserControl)
            views_.push_back(viewFor(model, old));
    });
    for (const auto& view : old) {
        if (view)
            view->window()->destroy();
    }
}

std::shared_ptr<ControlView> FilterSurface::viewWith(HWND window) const {
    std::shared_ptr<ControlView> found;
    for (const auto& view : views_) {
        if (view->takesFocus() && isWithin(view->handle(), window))
            found = view;
    }
    return found;
}

bool FilterSurface::isStop(const ControlView& view) const {
    return view.takesFocus() && view.modelLives() && view.handle() && IsWindowVisible(view.handle()) &&
           IsWindowEnabled(view.handle());
}

bool FilterSurface::takeFocus(bool last) {
    const auto isUsable = [this](const auto& view) { return isStop(*view); };
    if (last) {
        const auto found = std::find_if(views_.rbegin(), views_.rend(), isUsable);
        if (found == views_.rend())
            return false;
        SetFocus((*found)->handle());
        return true;
    }
    const auto found = std::find_if(views_.begin(), views_.end(), isUsable);
    if (found == views_.end())
        return false;
    SetFocus((*found)->handle());
    return true;
}

bool FilterSurface::focusIsInside() const {
    return isWithin(hwnd(), GetFocus());
}

bool FilterSurface::goToNext(bool forward) {
    std::vector<std::shared_ptr<ControlView>> stops;
    const auto current = viewWith(GetFocus());
    std::size_t position = 0;
    for (const auto& view : views_) {
        if (view == current)
            position = stops.size();
        if (view == current || isStop(*view))
            stops.push_back(view);
    }
    const bool past = stops.empty() || (forward ? position + 1 >= stops.size() : position == 0);
    if (!past) {
        SetFocus(stops[forward ? position + 1 : position - 1]->handle());
        return true;
    }
    if (!owner_ || !owner_->onTabOut)
        return false;
    const auto tell = owner_->onTabOut; // the call may destroy the owner
    tell(forward);
    return true;
}

bool FilterSurface::pressMnemonic(wchar_t letter) {
    const auto views = views_;
    for (const auto& view : views) {
        const std::u16string* caption = view->caption();
        if (!caption || !isStop(*view))
            continue;
        for (std::size_t i = 0; i + 1 < caption->size(); ++i) {
            if ((*caption)[i] != u'&')
                continue;
            const auto mark = static_cast<wchar_t>((*caption)[++i]);
            if (mark != L'&' && CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(mark))) ==
                                    CharUpperW(reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(letter)))) {
                SetFocus(view->handle());
                view->pressByMnemonic();
                return true;
            }
        }
    }
    return false;
}

bool FilterSurface::translateKey(MSG& message) {
    if (!hwnd() || !isWithin(hwnd(), message.hwnd))
        return false;
    if (message.message == WM_SYSCHAR)
        return pressMnemonic(static_cast<wchar_t>(message.wParam));
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN)
        return false;
    const auto alive = shared_from_this();
    const auto view = viewWith(message.hwnd);
    if (view && view->wantsKey(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
        return true;
    }
    if (message.message == WM_KEYDOWN && message.wParam == VK_TAB)
        return goToNext(GetKeyState(VK_SHIFT) >= 0);
    return false;
}

void FilterSurface::onFocus(bool has, HWND to) {
    const bool inside = has || isWithin(hwnd(), to);
    if (has && GetFocus() != hwnd())
        lastFocus_ = Window::of(GetFocus());
    if (inside == hasFocus_)
        return;
    hasFocus_ = inside;
    if (!owner_)
        return;
    if (const auto tell = inside ? owner_->onFocus : owner_->onLostFocus)
        tell();
}

LRESULT FilterSurface::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case matchViewsMessage:
        matchViews();
        return 0;
    case WM_ERASEBKGND: {
        RECT client;
        GetClientRect(hwnd(), &client);
        fillRect(reinterpret_cast<HDC>(wParam), client, dressing_->back);
        return 1;
    }
    case WM_SETFOCUS: {
        // The surface is no stop itself: whoever had the focus last gets it back.
        const auto last = lastFocus_.lock();
        if (last && last->hwnd() && IsWindowVisible(last->hwnd()) && IsWindowEnabled(last->hwnd()))
            SetFocus(last->hwnd());
        else
            takeFocus(false);
        return 0;
    }
    case WM_LBUTTONDOWN:
        SetFocus(hwnd());
        return 0;
    case WM_SYSCOLORCHANGE: {
        // The container hands it on; common controls want to be told, too.
        const auto views = views_;
        for (const auto& view : views)
            SendMessageW(view->handle(), message, wParam, lParam);
        dressing_->setBack(surfaceColor(filter_.controls().UserControl, dressing_->look.back));
        RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        return 0;
    }
    case WM_NCDESTROY:
    default:
        return ContainerWindow::onMessage(message, wParam, lParam);
    }
}

} // namespace orv::windows
