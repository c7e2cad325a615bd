#include "windows/views/FilterSurface.h"

#include "control/Filter.h"
#include "windows/com/Handles.h"
#include "windows/views/AccessKeys.h"
#include "windows/views/SurfaceColor.h"
#include "windows/views/VisualStyles.h"

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

/// Ctrl+Tab, Ctrl+Page Up and Ctrl+Page Down, as in property sheets.
bool switchesPage(WPARAM key) {
    return (key == VK_TAB || key == VK_PRIOR || key == VK_NEXT) && GetKeyState(VK_CONTROL) < 0;
}

bool isGrid(const ControlView& view) {
    return dynamic_cast<const ui::Spread*>(view.model()) != nullptr;
}

} // namespace

FilterSurface::FilterSurface(control::Filter& filter, IUnknown* control, const Appearance& look, FilterWindow& owner)
    : filter_(filter), owner_(&owner), dressing_(std::make_shared<Dressing>(look)) {
    keepDuringMessages(control);
    dressing_->translated = [this](std::u16string_view text, std::u16string_view first) {
        return filter_.translated(text, first);
    };
    dressing_->today = [this]() -> std::optional<SYSTEMTIME> {
        const auto now = filter_.serverDay();
        SYSTEMTIME day{};
        if (!now || !VariantTimeToSystemTime(now->days, &day))
            return std::nullopt;
        return day;
    };
}

FilterSurface::~FilterSurface() {
    subscriptions_.clear();
    views_.clear();
}

void FilterSurface::disown() noexcept {
    owner_ = nullptr;
    keepDuringMessages(nullptr);
}

void FilterSurface::open(HWND parent, const RECT& bounds) {
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_TAB_CLASSES | ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES |
                                                     ICC_DATE_CLASSES | ICC_STANDARD_CLASSES};
    {
        const VisualStyles styles;
        InitCommonControlsEx(&classes);
    }
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
    dressing_->setLook(look);
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
    view->onTabOut = [this](bool forward) { goToNext(forward); };
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
    nameGrids();
}

void FilterSurface::nameGrids() {
    control::FilterControls& controls = filter_.controls();
    const std::pair<std::u16string_view, const ui::Control*> grids[] = {
        {u"Filter", &controls.vsFilter}, {u"Sort", &controls.vsOrder}, {u"HideSet", &controls.vsHideColumn}};
    for (const auto& tab : controls.tbFilter.tabs()) {
        for (const auto& [key, grid] : grids) {
            const auto view = std::ranges::find_if(views_, [&](const auto& v) { return v->model() == grid; });
            if (tab.key == key && view != views_.end())
                SetWindowTextW((*view)->handle(), asWide(tab.caption));
        }
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

bool FilterSurface::pressAccessKey(char16_t letter) {
    const char16_t wanted = accessKeyOf(std::u16string{u'&', letter});
    if (wanted == 0)
        return false;
    const auto views = views_;
    for (auto view = views.begin(); view != views.end(); ++view) {
        const std::u16string* caption = (*view)->modelLives() ? (*view)->caption() : nullptr;
        if (!caption || accessKeyOf(*caption) != wanted || !IsWindowVisible((*view)->handle()))
            continue;
        // A label's key is that of the part behind it.
        const auto isUsable = [this](const auto& part) { return isStop(*part); };
        const auto target = (*view)->takesFocus() ? view : std::find_if(view, views.end(), isUsable);
        if (target == views.end() || !isStop(**target))
            continue;
        SetFocus((*target)->handle());
        if (target == view)
            (*view)->pressByMnemonic();
        return true;
    }
    return false;
}

bool FilterSurface::translateKey(MSG& message) {
    if (!hwnd() || !isWithin(hwnd(), message.hwnd))
        return false;
    if (message.message == WM_SYSCHAR)
        return pressAccessKey(static_cast<char16_t>(message.wParam));
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN)
        return false;
    const auto alive = shared_from_this();
    const auto view = viewWith(message.hwnd);
    if (view && message.message == WM_KEYDOWN && isWithinFrame(message.hwnd) && switchesPage(message.wParam))
        return goToPage(message.wParam == VK_NEXT || (message.wParam == VK_TAB && GetKeyState(VK_SHIFT) >= 0));
    if (view && view->wantsKey(message)) {
        if (!view->takeKey(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        return true;
    }
    if (message.message != WM_KEYDOWN)
        return false;
    // A grid keeps Tab as long as it has a next cell.
    const bool leavesGrid = view && message.wParam == VK_F6 && view->onTabOut && isGrid(*view);
    return (message.wParam == VK_TAB || leavesGrid) && goToNext(GetKeyState(VK_SHIFT) >= 0);
}

bool FilterSurface::isWithinFrame(HWND window) const {
    return GetAncestor(window, GA_ROOT) == GetAncestor(hwnd(), GA_ROOT);
}

bool FilterSurface::goToPage(bool forward) {
    ui::TabStrip& tabs = filter_.controls().tbFilter;
    const auto count = static_cast<int>(tabs.tabs().size());
    if (count < 2 || !tabs.enabled() || !tabs.visible())
        return false;
    const auto alive = shared_from_this();
    const auto before = viewWith(GetFocus());
    tabs.userSelect((tabs.selected() - 1 + (forward ? 1 : count - 1)) % count + 1);
    if (!hwnd() || (before && isStop(*before)))
        return true;
    // What had the focus has gone with its page: the first part of the new one gets it.
    const auto strip = std::ranges::find_if(views_, [&tabs](const auto& view) { return view->model() == &tabs; });
    const auto stop = std::find_if(strip == views_.end() ? strip : std::next(strip), views_.end(),
                                   [this](const auto& view) { return isStop(*view); });
    if (stop != views_.end())
        SetFocus((*stop)->handle());
    return true;
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
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED: {
        // Containers hand on what top windows are told; common controls want to be told, too, each of its theme by the
        // system itself.
        const auto views = views_;
        for (const auto& view : views) {
            if (message != WM_THEMECHANGED)
                SendMessageW(view->handle(), message, wParam, lParam);
        }
        setAppearance(Appearance(dressing_->look));
        RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
        return 0;
    }
    case WM_NCDESTROY:
    default:
        return ContainerWindow::onMessage(message, wParam, lParam);
    }
}

} // namespace orv::windows
