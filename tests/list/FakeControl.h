#pragma once

#include "ole/References.h"

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>
#include <wrl/client.h>

#include <string>
#include <vector>

namespace orv::ole::test {

/// A control that writes down what its container asks of it: a window with two edits.
class FakeControl final : public Counted<IDispatch, IOleObject, IOleInPlaceObject, IOleInPlaceActiveObject, IOleControl,
                                         IPersistStreamInit> {
  public:
    std::vector<std::string> calls;
    DWORD miscStatus = OLEMISC_SETCLIENTSITEFIRST;
    std::vector<WPARAM> wantedKeys; ///< others are offered to the site
    HACCEL accelerators = nullptr;
    DWORD eats = 0;
    HWND window = nullptr;
    RECT position{};
    SIZEL extent{};
    Microsoft::WRL::ComPtr<IOleClientSite> site;

    HWND edit(int number) const { return GetDlgItem(window, number); }
    /// A method of the site's as the control calls it; null when the site has none of that interface.
    template <class Interface>
    Microsoft::WRL::ComPtr<Interface> siteAs() const {
        Microsoft::WRL::ComPtr<Interface> asked;
        if (site)
            site.As(&asked);
        return asked;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return Counted::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return Counted::Release(); }
    // IDispatch: no members
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        return DISP_E_MEMBERNOTFOUND;
    }
    // IOleObject
    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* client) noexcept override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Close(DWORD) noexcept override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG message, IOleClientSite*, LONG, HWND, LPCRECT) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Update() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD, SIZEL* size) noexcept override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD, SIZEL*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink*, DWORD*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD, DWORD* status) noexcept override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }
    // IOleWindow, IOleInPlaceObject
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* out) noexcept override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InPlaceDeactivate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE UIDeactivate() noexcept override;
    HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT where, LPCRECT clip) noexcept override;
    HRESULT STDMETHODCALLTYPE ReactivateAndUndo() noexcept override { return E_NOTIMPL; }
    // IOleInPlaceActiveObject
    HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message) noexcept override;
    HRESULT STDMETHODCALLTYPE OnFrameWindowActivate(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnDocWindowActivate(BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE EnableModeless(BOOL) noexcept override { return S_OK; }
    // IOleControl
    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) noexcept override;
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) noexcept override;
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) noexcept override { return S_OK; }
    // IPersistStreamInit
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE IsDirty() noexcept override { return S_FALSE; }
    HRESULT STDMETHODCALLTYPE Load(IStream*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Save(IStream*, BOOL) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE InitNew() noexcept override;

  private:
    ~FakeControl() override = default;
    HRESULT told(const char* call) noexcept {
        calls.emplace_back(call);
        return S_OK;
    }
    void open() noexcept;
    void uiActivate(bool fromTab) noexcept;
};

} // namespace orv::ole::test
