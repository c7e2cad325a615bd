#pragma once

#include "windows/ole/Activation.h"
#include "windows/ole/Design.h"
#include "windows/ole/OlePart.h"

namespace orv::windows {

/// The picture of the control, where it has no window: on a form that is being designed, in print, in a metafile.
class ViewObject final : public OlePart<IViewObject2> {
  public:
    ViewObject(OleSite& site, Activation& activation, Design& design, control::Filter& filter) noexcept
        : OlePart(site.control), site_(site), activation_(activation), design_(design), filter_(filter) {}

    HRESULT STDMETHODCALLTYPE Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC deviceDc,
                                   HDC dc, LPCRECTL bounds, LPCRECTL windowBounds,
                                   WINBOOL(STDMETHODCALLTYPE* goesOn)(ULONG_PTR), ULONG_PTR argument) noexcept override;
    /// S_FALSE: the system's colours do.
    HRESULT STDMETHODCALLTYPE GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device,
                                          HDC deviceDc, LOGPALETTE** colours) noexcept override;
    HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD* key) noexcept override;
    HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept override;
    HRESULT STDMETHODCALLTYPE GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept override;
    HRESULT STDMETHODCALLTYPE GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device,
                                        LPSIZEL extent) noexcept override;

  private:
    OleSite& site_;
    Activation& activation_;
    Design& design_;
    control::Filter& filter_;
};

} // namespace orv::windows
