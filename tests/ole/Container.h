#pragma once

#include "windows/Dll.h"
#include "windows/com/ComObject.h"

#include <ocidl.h>

#include <functional>
#include <string>
#include <vector>

namespace orv::windows {

template <>
struct Extends<IOleInPlaceFrame> {
    using type = IOleInPlaceUIWindow;
};
template <>
struct Extends<IOleInPlaceSite> {
    using type = IOleWindow;
};

} // namespace orv::windows

namespace orv::windows::test {

/// A window that stands for a form of a host; shown at once, without a title bar, so that its client area is known.
class FormWindow {
  public:
    FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    ~FormWindow();
    HWND hwnd() const noexcept { return hwnd_; }

  private:
    HWND hwnd_;
};

/// A form for all tests: to make one takes seconds on an X server without a window manager. It has the focus.
FormWindow& sharedForm();

/// Handles the messages that wait.
void pumpMessages();

/// What a container was told, in order: "OnUIActivate", "frame.SetActiveObject", "OnFocus 1", ...
using Calls = std::vector<std::string>;

/// A container written by hand: site, in-place site, control site and frame in one object. It writes down what the
/// control tells it and counts what is held of it.
class Container final
    : public ComObject<IOleClientSite, IOleInPlaceSite, IOleControlSite, IOleInPlaceFrame, IDispatch> {
  public:
    explicit Container(HWND form) : form_(form) {}

    /// Calls since the last time, without those of `ignored`.
    Calls take();
    /// References that others hold.
    ULONG heldByOthers() noexcept;

    // What the container answers; a test sets it.
    RECT position{10, 20, 650, 420};
    RECT clip{0, 0, 800, 600};
    bool allowsActivation = true;
    bool hasFrame = true;
    bool userMode = true;
    bool uiDead = false;
    OLE_COLOR backColour = RGB(10, 200, 30);
    bool takesKeys = false;
    /// Done once, inside of the call of that name.
    std::string actsIn;
    std::function<void()> act;

    // IOleClientSite
    HRESULT STDMETHODCALLTYPE SaveObject() noexcept override { return told("SaveObject"); }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE ShowObject() noexcept override { return told("ShowObject"); }
    HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL) noexcept override { return told("OnShowWindow"); }
    HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() noexcept override { return E_NOTIMPL; }
    // IOleWindow, for site and frame
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    // IOleInPlaceSite
    HRESULT STDMETHODCALLTYPE CanInPlaceActivate() noexcept override { return allowsActivation ? S_OK : S_FALSE; }
    HRESULT STDMETHODCALLTYPE OnInPlaceActivate() noexcept override { return told("OnInPlaceActivate"); }
    HRESULT STDMETHODCALLTYPE OnUIActivate() noexcept override { return told("OnUIActivate"); }
    HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document, LPRECT where,
                                               LPRECT seen, LPOLEINPLACEFRAMEINFO keys) noexcept override;
    HRESULT STDMETHODCALLTYPE Scroll(SIZE) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL) noexcept override { return told("OnUIDeactivate"); }
    HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() noexcept override { return told("OnInPlaceDeactivate"); }
    HRESULT STDMETHODCALLTYPE DiscardUndoState() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DeactivateAndUndo() noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT) noexcept override { return told("OnPosRectChange"); }
    // IOleControlSite
    HRESULT STDMETHODCALLTYPE OnControlInfoChanged() noexcept override { return told("OnControlInfoChanged"); }
    HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TransformCoords(POINTL*, POINTF*, DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) noexcept override;
    HRESULT STDMETHODCALLTYPE OnFocus(BOOL gained) noexcept override {
        return told(gained ? "OnFocus 1" : "OnFocus 0");
    }
    HRESULT STDMETHODCALLTYPE ShowPropertyFrame() noexcept override { return E_NOTIMPL; }
    // IOleInPlaceFrame
    HRESULT STDMETHODCALLTYPE GetBorder(LPRECT) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS) noexcept override { return INPLACE_E_NOTOOLSPACE; }
    HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR) noexcept override;
    HRESULT STDMETHODCALLTYPE InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetMenu(HMENU, HOLEMENU, HWND) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) noexcept override {
        return told(enable ? "EnableModeless 1" : "EnableModeless 0");
    }
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG, WORD) noexcept override { return S_FALSE; }
    // IDispatch: the ambient properties
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) noexcept override;

  private:
    HRESULT told(const char* call) noexcept;

    HWND form_;
    Calls calls_;
};

/// A control of the DLL in a container, each to be asked for any interface.
struct Embedded {
    explicit Embedded(HWND form) : site(makeComObject<Container>(form)) {}
    ~Embedded();

    /// As containers do it: site, new state, activation.
    void start();
    template <class I>
    ComPtr<I> as() const {
        ComPtr<I> asked;
        loaded.filter.as(asked);
        return asked;
    }
    IOleClientSite* client() const noexcept { return site.get(); }
    HRESULT verb(LONG verb) const;
    /// The control's window; null without one.
    HWND window() const;
    /// Ends everything; the references to the control that are left then.
    ULONG finish();

    LoadedFilter loaded;
    ComPtr<Container> site;
};

} // namespace orv::windows::test
