#include "ole/Container.h"

#include <olectl.h>

namespace orv::windows::test {

namespace {

constexpr const wchar_t* formClass = L"OrvTestForm";

} // namespace

FormWindow::FormWindow() {
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = formClass;
    RegisterClassW(&description); // fails from the second form on: the class is there already
    hwnd_ = CreateWindowExW(0, formClass, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 800, 600, nullptr,
                            nullptr, description.hInstance, nullptr);
    SetForegroundWindow(hwnd_);
    SetActiveWindow(hwnd_);
    pumpMessages();
}

FormWindow::~FormWindow() {
    DestroyWindow(hwnd_);
    pumpMessages();
}

FormWindow& sharedForm() {
    static FormWindow form;
    SetFocus(form.hwnd());
    return form;
}

void pumpMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

Calls Container::take() {
    return std::exchange(calls_, {});
}

ULONG Container::heldByOthers() noexcept {
    AddRef();
    return Release() - 1;
}

HRESULT Container::told(const char* call) noexcept {
    calls_.emplace_back(call);
    if (act && actsIn == call)
        std::exchange(act, nullptr)();
    return S_OK;
}

HRESULT Container::GetContainer(IOleContainer** container) noexcept {
    *container = nullptr;
    return E_NOINTERFACE;
}

HRESULT Container::GetWindow(HWND* window) noexcept {
    *window = form_;
    return S_OK;
}

HRESULT Container::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT where, LPRECT seen,
                                    LPOLEINPLACEFRAMEINFO keys) noexcept {
    *frame = hasFrame ? ComPtr<IOleInPlaceFrame>::copyFrom(this).detach() : nullptr;
    *document = nullptr;
    *where = position;
    *seen = clip;
    keys->fMDIApp = FALSE;
    keys->hwndFrame = form_;
    keys->haccel = nullptr;
    keys->cAccelEntries = 0;
    return S_OK;
}

HRESULT Container::TranslateAccelerator(MSG* message, DWORD modifiers) noexcept {
    told(("key " + std::to_string(message->wParam) + " " + std::to_string(modifiers)).c_str());
    return takesKeys ? S_OK : S_FALSE;
}

HRESULT Container::SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept {
    return told(object ? "frame.SetActiveObject" : "frame.SetActiveObject none");
}

HRESULT Container::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*, UINT*) noexcept {
    switch (id) {
    case DISPID_AMBIENT_USERMODE:
        V_VT(result) = VT_BOOL;
        V_BOOL(result) = userMode ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    case DISPID_AMBIENT_UIDEAD:
        V_VT(result) = VT_BOOL;
        V_BOOL(result) = uiDead ? VARIANT_TRUE : VARIANT_FALSE;
        return S_OK;
    case DISPID_AMBIENT_BACKCOLOR:
        V_VT(result) = VT_I4;
        V_I4(result) = static_cast<LONG>(backColour);
        return S_OK;
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

Embedded::~Embedded() {
    if (loaded.filter)
        finish();
}

void Embedded::start() {
    const auto object = as<IOleObject>();
    object->SetClientSite(client());
    as<IPersistStreamInit>()->InitNew();
    object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, client(), 0, nullptr, nullptr);
}

HRESULT Embedded::verb(LONG verb) const {
    return as<IOleObject>()->DoVerb(verb, nullptr, client(), 0, nullptr, nullptr);
}

HWND Embedded::window() const {
    HWND window = nullptr;
    as<IOleInPlaceObject>()->GetWindow(&window);
    return window;
}

ULONG Embedded::finish() {
    const auto object = as<IOleObject>();
    object->Close(OLECLOSE_NOSAVE);
    object->SetClientSite(nullptr);
    loaded.filter = nullptr;
    return ComPtr<IOleObject>(object).detach()->Release() - 1;
}

} // namespace orv::windows::test
