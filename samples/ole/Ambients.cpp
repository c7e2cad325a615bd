#include "ole/Ambients.h"

#include <olectl.h>
#include <wrl/client.h>

namespace orv::ole {

namespace {

using Microsoft::WRL::ComPtr;

HRESULT put(VARIANT* result, bool flag) noexcept {
    result->vt = VT_BOOL;
    result->boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return S_OK;
}

HRESULT put(VARIANT* result, long number) noexcept {
    result->vt = VT_I4;
    result->lVal = number;
    return S_OK;
}

/// An OLE_COLOR that follows the system's.
long systemColour(int index) noexcept {
    return static_cast<long>(0x80000000u | static_cast<unsigned>(index));
}

HRESULT putFont(VARIANT* result) noexcept {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
        return E_FAIL;
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = metrics.lfMessageFont.lfFaceName;
    // Ten-thousandths of a point.
    description.cySize.int64 = 10000LL * 72 * -metrics.lfMessageFont.lfHeight / dpi;
    description.sWeight = static_cast<SHORT>(metrics.lfMessageFont.lfWeight);
    description.sCharset = metrics.lfMessageFont.lfCharSet;
    ComPtr<IDispatch> font;
    if (const HRESULT made =
            OleCreateFontIndirect(&description, IID_IDispatch, reinterpret_cast<void**>(font.GetAddressOf()));
        FAILED(made))
        return made;
    result->vt = VT_DISPATCH;
    result->pdispVal = font.Detach();
    return S_OK;
}

} // namespace

HRESULT readAmbient(DISPID id, VARIANT* result) noexcept {
    if (!result)
        return E_POINTER;
    *result = {};
    switch (id) {
    case DISPID_AMBIENT_BACKCOLOR:
        return put(result, systemColour(COLOR_BTNFACE));
    case DISPID_AMBIENT_FORECOLOR:
        return put(result, systemColour(COLOR_BTNTEXT));
    case DISPID_AMBIENT_FONT:
        return putFont(result);
    case DISPID_AMBIENT_LOCALEID:
        return put(result, static_cast<long>(GetUserDefaultLCID()));
    case DISPID_AMBIENT_APPEARANCE:
        return put(result, 1L); // with borders
    case DISPID_AMBIENT_USERMODE:
    case DISPID_AMBIENT_SUPPORTSMNEMONICS:
        return put(result, true);
    case DISPID_AMBIENT_UIDEAD:
    case DISPID_AMBIENT_DISPLAYASDEFAULT:
    case DISPID_AMBIENT_MESSAGEREFLECT:
    case DISPID_AMBIENT_SHOWGRABHANDLES:
    case DISPID_AMBIENT_SHOWHATCHING:
        return put(result, false);
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

} // namespace orv::ole
