#include "windows/ole/Ambients.h"

#include "windows/com/ComPtr.h"
#include "windows/com/Handles.h"
#include "windows/ole/Extent.h"

#include <olectl.h>

namespace orv::windows {

namespace {

/// An ambient property in the asked type; empty when the container has none.
UniqueVariant ambient(IDispatch& container, DISPID id, VARTYPE type) noexcept {
    UniqueVariant value;
    DISPPARAMS none{};
    const HRESULT asked =
        container.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.put(), nullptr, nullptr);
    if (FAILED(asked) || FAILED(VariantChangeType(&value.ref(), &value.ref(), 0, type)))
        return {};
    return value;
}

bool flag(IDispatch& container, DISPID id, bool otherwise) noexcept {
    const UniqueVariant value = ambient(container, id, VT_BOOL);
    return value.type() == VT_BOOL ? V_BOOL(&value.get()) != VARIANT_FALSE : otherwise;
}

COLORREF colour(IDispatch& container, DISPID id, COLORREF otherwise) noexcept {
    const UniqueVariant value = ambient(container, id, VT_I4);
    COLORREF translated = otherwise;
    if (value.type() != VT_I4 ||
        FAILED(OleTranslateColor(static_cast<OLE_COLOR>(V_I4(&value.get())), nullptr, &translated)))
        return otherwise;
    return translated;
}

void readFont(IDispatch& container, LOGFONTW& font) noexcept {
    const UniqueVariant value = ambient(container, DISPID_AMBIENT_FONT, VT_DISPATCH);
    ComPtr<IFont> given;
    HFONT handle = nullptr; // the font object's own
    if (value.type() != VT_DISPATCH || !V_DISPATCH(&value.get()) ||
        FAILED(V_DISPATCH(&value.get())->QueryInterface(IID_IFont, given.putVoid())) ||
        FAILED(given->get_hFont(&handle)))
        return;
    LOGFONTW read{};
    if (GetObjectW(handle, sizeof read, &read) != 0)
        font = read;
}

Appearance systemLook() noexcept {
    Appearance look{};
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
        look.font = metrics.lfMessageFont;
    look.back = GetSysColor(COLOR_BTNFACE);
    look.fore = GetSysColor(COLOR_BTNTEXT);
    look.dpi = screenDpi();
    return look;
}

} // namespace

Ambients readAmbients(IOleClientSite* site) noexcept {
    Ambients read;
    read.look = systemLook();
    ComPtr<IDispatch> container;
    if (!site || FAILED(site->QueryInterface(IID_IDispatch, container.putVoid())))
        return read;
    read.userMode = flag(*container, DISPID_AMBIENT_USERMODE, read.userMode);
    read.uiDead = flag(*container, DISPID_AMBIENT_UIDEAD, read.uiDead);
    read.look.back = colour(*container, DISPID_AMBIENT_BACKCOLOR, read.look.back);
    read.look.fore = colour(*container, DISPID_AMBIENT_FORECOLOR, read.look.fore);
    readFont(*container, read.look.font);
    return read;
}

} // namespace orv::windows
