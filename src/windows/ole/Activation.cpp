#include "windows/ole/Activation.h"

#include "control/Filter.h"
#include "windows/com/Errors.h"
#include "windows/ole/Extent.h"
#include "windows/views/AccessKeys.h"

namespace orv::windows {

namespace {

/// What the container shows in its title while the control is active.
constexpr const wchar_t* activeObjectName = L"ORVFilter.Filter";

void setActiveObject(const ComPtr<IOleInPlaceFrame>& frame, const ComPtr<IOleInPlaceUIWindow>& document,
                     IOleInPlaceActiveObject* object) noexcept {
    const wchar_t* name = object ? activeObjectName : nullptr;
    if (frame)
        frame->SetActiveObject(object, name);
    if (document)
        document->SetActiveObject(object, name);
}

} // namespace

Activation::~Activation() {
    closeWindow();
}

void Activation::setClient(IOleClientSite* client) {
    if (site_.client.get() == client)
        return;
    deactivateInPlace();
    site_.client = ComPtr<IOleClientSite>::copyFrom(client);
    refreshAmbients();
}

HRESULT Activation::activateInPlace() {
    if (site_.place) {
        if (window_)
            window_->show(true);
        return S_OK;
    }
    const ComPtr<IOleClientSite> client = site_.client;
    if (!client)
        return E_UNEXPECTED;
    ComPtr<IOleInPlaceSite> place;
    if (FAILED(client.as(place)) || place->CanInPlaceActivate() != S_OK)
        return E_FAIL;
    if (const HRESULT told = place->OnInPlaceActivate(); FAILED(told))
        return told;
    site_.place = place;
    HRESULT opened = E_FAIL;
    try {
        opened = openWindow(place);
    } catch (...) {
        deactivateInPlace();
        throw;
    }
    if (FAILED(opened)) {
        deactivateInPlace();
        return opened;
    }
    client->ShowObject();
    return S_OK;
}

HRESULT Activation::openWindow(const ComPtr<IOleInPlaceSite>& place) {
    HWND parent = nullptr;
    if (const HRESULT known = place->GetWindow(&parent); FAILED(known))
        return known;
    ComPtr<IOleInPlaceFrame> frame;
    ComPtr<IOleInPlaceUIWindow> document;
    RECT position{}, clip{};
    OLEINPLACEFRAMEINFO keys{};
    keys.cb = sizeof keys;
    if (const HRESULT known = place->GetWindowContext(frame.put(), document.put(), &position, &clip, &keys);
        FAILED(known))
        return known;
    // The container may have ended the activation while it answered.
    if (site_.place.get() != place.get())
        return E_FAIL;
    site_.frame = frame;
    site_.document = document;
    window_ = std::make_unique<FilterWindow>(parent, position, filter_, &site_.control, site_.ambients.look);
    window_->onFocus = [this] { onFocus(); };
    window_->onLostFocus = [this] { onLostFocus(); };
    window_->onTabOut = [this](bool) { onTabOut(); };
    applyLiveliness();
    const HRESULT placed = setRects(position, clip);
    if (window_)
        window_->show(true);
    return placed;
}

HRESULT Activation::activateUi(FocusStop stop) {
    if (const HRESULT active = activateInPlace(); FAILED(active))
        return active;
    if (!site_.ambients.isLive())
        return S_OK;
    if (!isUiActive_) {
        if (const HRESULT told = announce(); FAILED(told))
            return told;
    }
    if (stop != FocusStop::keep && isUiActive_ && window_ && !window_->focusIsInside())
        window_->takeFocus(stop == FocusStop::last);
    return S_OK;
}

/// Tells site, frame and document, in this order, that the control is the active object now.
HRESULT Activation::announce() {
    const ComPtr<IOleInPlaceSite> place = site_.place;
    if (!place)
        return E_UNEXPECTED;
    isUiActive_ = true;
    if (const HRESULT told = place->OnUIActivate(); FAILED(told)) {
        isUiActive_ = false;
        return told;
    }
    if (!isUiActive_)
        return S_OK;
    ComPtr<IOleInPlaceActiveObject> self;
    if (const HRESULT asked = site_.control.QueryInterface(__uuidof(IOleInPlaceActiveObject), self.putVoid());
        FAILED(asked))
        return asked;
    const ComPtr<IOleInPlaceFrame> frame = site_.frame;
    const ComPtr<IOleInPlaceUIWindow> document = site_.document;
    setActiveObject(frame, document, self.get());
    // No tool bars of our own: the container's stay.
    if (frame && isUiActive_)
        frame->SetBorderSpace(nullptr);
    if (document && isUiActive_)
        document->SetBorderSpace(nullptr);
    return S_OK;
}

HRESULT Activation::deactivateUi() {
    if (!isUiActive_)
        return S_OK;
    isUiActive_ = false;
    const ComPtr<IOleInPlaceSite> place = site_.place;
    setActiveObject(ComPtr(site_.frame), ComPtr(site_.document), nullptr);
    if (place)
        place->OnUIDeactivate(FALSE);
    return S_OK;
}

HRESULT Activation::deactivateInPlace() {
    if (!site_.place)
        return S_OK;
    deactivateUi();
    const ComPtr<IOleInPlaceSite> place = std::exchange(site_.place, nullptr);
    if (!place)
        return S_OK; // the container did it from within OnUIDeactivate
    const bool hadFocus = window_ && window_->focusIsInside();
    closeWindow();
    site_.frame = nullptr;
    site_.document = nullptr;
    if (hadFocus)
        site_.sendFocus(false);
    place->OnInPlaceDeactivate();
    return S_OK;
}

void Activation::closeWindow() {
    // Out of reach first: what its last messages cause must not find it.
    const std::unique_ptr<FilterWindow> window = std::move(window_);
    if (!window)
        return;
    window->onFocus = nullptr;
    window->onLostFocus = nullptr;
    window->onTabOut = nullptr;
}

HRESULT Activation::hide() {
    deactivateUi();
    if (window_)
        window_->show(false);
    return S_OK;
}

HRESULT Activation::setRects(const RECT& position, const RECT& clip) {
    if (!window_)
        return E_UNEXPECTED;
    const HWND window = window_->hwnd();
    window_->move(position);
    RECT seen{};
    const BOOL isSeen = IntersectRect(&seen, &position, &clip);
    HRGN region = nullptr;
    if (!isSeen || !EqualRect(&seen, &position)) {
        OffsetRect(&seen, isSeen ? -position.left : 0, isSeen ? -position.top : 0);
        region = CreateRectRgnIndirect(&seen);
        if (!region)
            return E_OUTOFMEMORY;
    }
    // The window owns the region from here on, unless the call fails.
    if (!SetWindowRgn(window, region, TRUE) && region)
        DeleteObject(region);
    return S_OK;
}

void Activation::refreshAmbients() {
    const ComPtr<IOleClientSite> client = site_.client;
    site_.ambients = readAmbients(client.get());
    if (window_)
        window_->setAppearance(site_.ambients.look);
    applyLiveliness();
    if (!site_.ambients.isLive())
        deactivateUi();
    site_.advice.sendViewChange();
}

void Activation::enableModeless(bool enabled) {
    isModeless_ = enabled;
    applyLiveliness();
}

void Activation::applyLiveliness() {
    if (window_)
        window_->enable(site_.ambients.isLive() && isModeless_);
}

HRESULT Activation::translateKey(MSG& message) {
    if (!window_ || !site_.ambients.isLive())
        return S_FALSE;
    const bool outerTranslates = std::exchange(translates_, true);
    tabsOut_ = false;
    const bool taken = window_->translateKey(message);
    translates_ = outerTranslates;
    if (taken && !tabsOut_)
        return S_OK;
    return site_.offerKey(message);
}

std::u16string Activation::accessKeys() const {
    return accessKeysOf(filter_.controls());
}

HRESULT Activation::pressAccessKey(char16_t letter) {
    if (!site_.ambients.isLive())
        return S_FALSE;
    // The key may be pressed from anywhere in the container's form.
    if (const HRESULT active = activateUi(FocusStop::keep); FAILED(active))
        return active;
    return window_ && window_->pressAccessKey(letter) ? S_OK : S_FALSE;
}

HWND Activation::hwnd() const noexcept {
    return window_ ? window_->hwnd() : nullptr;
}

void Activation::layOut(const SIZEL& extent) {
    if (window_) {
        const HWND window = window_->hwnd();
        RECT position{};
        GetWindowRect(window, &position);
        MapWindowPoints(nullptr, GetAncestor(window, GA_PARENT), reinterpret_cast<POINT*>(&position), 2);
        window_->move(position);
        return;
    }
    const int dpi = site_.ambients.look.dpi;
    filter_.resize(pixelsOfHimetric(extent.cx, dpi), pixelsOfHimetric(extent.cy, dpi),
                   static_cast<double>(dpi) / USER_DEFAULT_SCREEN_DPI);
}

void Activation::onFocus() {
    guarded([&] { return activateUi(FocusStop::keep); });
    site_.sendFocus(true);
}

void Activation::onLostFocus() {
    site_.sendFocus(false);
}

void Activation::onTabOut() {
    if (translates_) {
        tabsOut_ = true; // `translateKey` hands the key on
        return;
    }
    // The container does not offer its messages: the key that led out is offered to it. Shift tells the direction.
    MSG message{};
    message.hwnd = hwnd();
    message.message = WM_KEYDOWN;
    message.wParam = VK_TAB;
    site_.offerKey(message);
}

} // namespace orv::windows
