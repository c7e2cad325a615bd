#include "ole/ControlWindow.h"

#include "ole/Himetric.h"

#include <olectl.h>

#include <utility>

namespace orv::ole {

using Microsoft::WRL::ComPtr;

namespace {

template <class Interface>
ComPtr<Interface> as(const Object& control) noexcept {
    ComPtr<Interface> asked;
    if (control)
        control.dispatch().As(&asked);
    return asked;
}

bool isKey(const MSG& message) noexcept {
    return message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
}

} // namespace

ControlWindow::ControlWindow(HWND parent, int id, Object control, Frame& frame)
    : frame_(&frame), control_(std::move(control)) {
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.lpszClassName = windowClass;
    RegisterClassW(&description); // fails from the second time on: the class is there already
    window_ = CreateWindowExW(0, windowClass, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN, 0, 0, 0, 0,
                              parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), description.hInstance, this);
    if (!window_)
        throw Failure(HRESULT_FROM_WIN32(GetLastError()), windowClass, {});
    try {
        site_ = makeCounted<Site>(static_cast<SiteOwner&>(*this), frame);
        open();
    } catch (...) {
        close();
        DestroyWindow(window_);
        throw;
    }
}

ControlWindow::~ControlWindow() {
    close();
    if (window_) {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
    }
}

/// As a container does it: the site before or after the new state, as the control wishes, then the activation.
void ControlWindow::open() {
    const ComPtr<IOleObject> object = as<IOleObject>(control_);
    if (!object)
        throw Failure(E_NOINTERFACE, L"IOleObject", {});
    DWORD wishes = 0;
    object->GetMiscStatus(DVASPECT_CONTENT, &wishes);
    const bool siteFirst = (wishes & OLEMISC_SETCLIENTSITEFIRST) != 0;
    if (siteFirst)
        check(object->SetClientSite(site_.Get()), L"SetClientSite");
    if (const auto state = as<IPersistStreamInit>(control_))
        check(state->InitNew(), L"InitNew");
    if (!siteFirst)
        check(object->SetClientSite(site_.Get()), L"SetClientSite");
    object->SetHostNames(L"OrvList", nullptr);
    RECT client{};
    GetClientRect(window_, &client);
    check(object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, site_.Get(), 0, window_, &client), L"DoVerb");
    controlInfoChanged();
}

void ControlWindow::close() noexcept {
    const Object control = std::exchange(control_, Object());
    if (const auto object = as<IOleObject>(control)) {
        object->Close(OLECLOSE_NOSAVE);
        object->SetClientSite(nullptr);
    }
    if (site_)
        site_->detach();
    site_ = nullptr;
}

HWND ControlWindow::controlWindow() const noexcept {
    HWND window = nullptr;
    if (const auto placed = as<IOleInPlaceObject>(control_))
        placed->GetWindow(&window);
    return window;
}

void ControlWindow::activate() {
    SetFocus(window_);
}

void ControlWindow::deactivate() noexcept {
    if (const auto placed = as<IOleInPlaceObject>(control_))
        placed->UIDeactivate();
}

/// The key that brought the focus tells the control at which end to begin.
void ControlWindow::uiActivate() noexcept {
    const ComPtr<Site> site = site_;
    const auto object = as<IOleObject>(control_);
    if (!object || !site)
        return;
    MSG key{};
    key.hwnd = window_;
    key.message = WM_KEYDOWN;
    key.wParam = VK_TAB;
    const bool byTab = GetKeyState(VK_TAB) < 0;
    RECT client{};
    GetClientRect(window_, &client);
    object->DoVerb(OLEIVERB_UIACTIVATE, byTab ? &key : nullptr, site.Get(), 0, window_, &client);
}

void ControlWindow::fit() noexcept {
    RECT client{};
    GetClientRect(window_, &client);
    if (const auto object = as<IOleObject>(control_)) {
        const double pixels = pixelsPerHimetric();
        SIZEL extent{static_cast<LONG>(client.right / pixels), static_cast<LONG>(client.bottom / pixels)};
        object->SetExtent(DVASPECT_CONTENT, &extent);
    }
    if (const auto placed = as<IOleInPlaceObject>(control_))
        placed->SetObjectRects(&client, &client);
}

bool ControlWindow::translate(MSG& message) noexcept {
    if (!isKey(message) || !control_)
        return false;
    const ComPtr<IOleInPlaceActiveObject> active = frame_->activeObject();
    const bool isInside = message.hwnd == window_ || IsChild(window_, message.hwnd);
    if (active && site_ && site_->isUiActive() && isInside && active->TranslateAccelerator(&message) == S_OK)
        return true;
    return isMnemonic(message);
}

/// The control's access keys work from everywhere in the dialog.
bool ControlWindow::isMnemonic(MSG& message) const noexcept {
    if (!keys_.hAccel || keys_.cAccel == 0 || (message.message != WM_SYSKEYDOWN && message.message != WM_SYSCHAR))
        return false;
    if (!IsAccelerator(keys_.hAccel, keys_.cAccel, &message, nullptr))
        return false;
    const auto object = as<IOleControl>(control_);
    return object && SUCCEEDED(object->OnMnemonic(&message));
}

void ControlWindow::controlInfoChanged() noexcept {
    keys_ = {};
    keys_.cb = sizeof keys_;
    if (const auto object = as<IOleControl>(control_); object && FAILED(object->GetControlInfo(&keys_)))
        keys_ = {};
}

/// Tab goes on in the dialog; Enter and Esc are the dialog's buttons', unless the control eats them.
bool ControlWindow::offerKey(const MSG& message) noexcept {
    if (message.message != WM_KEYDOWN)
        return false;
    if (message.wParam == VK_TAB) {
        const HWND dialog = GetParent(window_);
        const HWND next = GetNextDlgTabItem(dialog, window_, GetKeyState(VK_SHIFT) < 0);
        if (!next || next == window_)
            return false;
        // The dialog manager's own way: it also moves the frame of the default button.
        SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
        return true;
    }
    return (message.wParam == VK_RETURN && (keys_.dwFlags & CTRLINFO_EATS_RETURN)) ||
           (message.wParam == VK_ESCAPE && (keys_.dwFlags & CTRLINFO_EATS_ESCAPE));
}

LRESULT CALLBACK ControlWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<ControlWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self ? self->onMessage(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT ControlWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const HWND window = window_;
    switch (message) {
    case WM_SIZE:
        fit();
        return 0;
    case WM_SETFOCUS:
        uiActivate();
        return 0;
    case WM_ERASEBKGND:
        return 1; // the control covers it
    case WM_NCDESTROY:
        // The dialog went first.
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        close();
        window_ = nullptr;
        break;
    default:
        break;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

} // namespace orv::ole
