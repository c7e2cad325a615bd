#include "windows/ole/ViewObject.h"

#include "windows/ole/Extent.h"

#include <algorithm>

namespace orv::windows {

namespace {

/// The state of a device context for the length of a drawing.
class SavedDc {
  public:
    explicit SavedDc(HDC dc) noexcept : dc_(dc), state_(SaveDC(dc)) {}
    SavedDc(const SavedDc&) = delete;
    SavedDc& operator=(const SavedDc&) = delete;
    ~SavedDc() {
        if (state_ != 0)
            RestoreDC(dc_, state_);
    }
    explicit operator bool() const noexcept { return state_ != 0; }

  private:
    HDC dc_;
    int state_;
};

RECT upright(const RECTL& bounds) noexcept {
    return {std::min(bounds.left, bounds.right), std::min(bounds.top, bounds.bottom),
            std::max(bounds.left, bounds.right), std::max(bounds.top, bounds.bottom)};
}

/// Sets the context to its own pixels; gives the rectangle in them.
RECT toPixels(HDC dc, const RECT& bounds) noexcept {
    POINT corners[2] = {{bounds.left, bounds.top}, {bounds.right, bounds.bottom}};
    LPtoDP(dc, corners, 2);
    SetMapMode(dc, MM_TEXT);
    SetWindowOrgEx(dc, 0, 0, nullptr);
    SetViewportOrgEx(dc, 0, 0, nullptr);
    return upright({corners[0].x, corners[0].y, corners[1].x, corners[1].y});
}

} // namespace

HRESULT ViewObject::Draw(DWORD aspect, LONG, void*, DVTARGETDEVICE*, HDC, HDC dc, LPCRECTL bounds, LPCRECTL,
                         WINBOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) noexcept {
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    if (!dc || !bounds)
        return E_INVALIDARG;
    return run([&]() -> HRESULT {
        const SavedDc saved(dc);
        if (!saved)
            return E_OUTOFMEMORY;
        Appearance look = site_.ambients.look;
        RECT where = upright(*bounds);
        // A metafile has no pixels of its own: its player scales what is recorded in the units of `bounds`.
        if (GetDeviceCaps(dc, TECHNOLOGY) != DT_METAFILE && GetObjectType(dc) != OBJ_ENHMETADC) {
            where = toPixels(dc, where);
            const int dpi = dpiOf(dc);
            look.font.lfHeight = MulDiv(look.font.lfHeight, dpi, look.dpi);
            look.dpi = dpi;
        }
        // The control is laid out at no less than its smallest size, whatever the rectangle's.
        IntersectClipRect(dc, where.left, where.top, where.right, where.bottom);
        paintInactive(dc, where, filter_, look);
        activation_.layOut(design_.extent());
        return S_OK;
    });
}

HRESULT ViewObject::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colours) noexcept {
    if (!colours)
        return E_POINTER;
    *colours = nullptr;
    return S_FALSE;
}

HRESULT ViewObject::Freeze(DWORD, LONG, void*, DWORD* key) noexcept {
    if (key)
        *key = 0;
    return E_NOTIMPL;
}

HRESULT ViewObject::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) noexcept {
    return run([&] { site_.advice.setView(aspects, flags, sink); });
}

HRESULT ViewObject::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) noexcept {
    return run([&] { site_.advice.getView(aspects, flags, sink); });
}

HRESULT ViewObject::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL extent) noexcept {
    if (!extent)
        return E_POINTER;
    if (aspect != DVASPECT_CONTENT)
        return DV_E_DVASPECT;
    *extent = design_.extent();
    return S_OK;
}

} // namespace orv::windows
