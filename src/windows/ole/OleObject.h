#pragma once

#include "windows/ole/Activation.h"
#include "windows/ole/Design.h"
#include "windows/ole/OlePart.h"

namespace orv::windows {

/// How containers treat the control (OLEMISC_ values); written to the registry too. It is active whenever it is seen,
/// draws itself anew at a new size, and wants its site before its state.
inline constexpr DWORD filterMiscStatus = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
                                          OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;

/// Site, size, verbs and end of the embedded control.
class OleObject final : public OlePart<IOleObject> {
  public:
    OleObject(OleSite& site, Activation& activation, Design& design) noexcept
        : OlePart(site.control), site_(site), activation_(activation), design_(design) {}

    HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* client) noexcept override;
    HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** client) noexcept override;
    HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Close(DWORD saveOption) noexcept override;
    HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker** moniker) noexcept override;
    HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject** data) noexcept override;
    HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, MSG* message, IOleClientSite* client, LONG index, HWND parent,
                                     LPCRECT position) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB** verbs) noexcept override;
    HRESULT STDMETHODCALLTYPE Update() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE IsUpToDate() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID* id) noexcept override;
    HRESULT STDMETHODCALLTYPE GetUserType(DWORD form, LPOLESTR* text) noexcept override;
    HRESULT STDMETHODCALLTYPE SetExtent(DWORD aspect, SIZEL* extent) noexcept override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, SIZEL* extent) noexcept override;
    HRESULT STDMETHODCALLTYPE Advise(IAdviseSink* sink, DWORD* connection) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD connection) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA** connections) noexcept override;
    HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) noexcept override;
    HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) noexcept override { return E_NOTIMPL; }

  private:
    OleSite& site_;
    Activation& activation_;
    Design& design_;
};

} // namespace orv::windows
