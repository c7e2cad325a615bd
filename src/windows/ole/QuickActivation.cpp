#include "windows/ole/QuickActivation.h"

#include "windows/ole/OleObject.h"

#include <ORVFilter.h>

namespace orv::windows {

namespace {

/// The cookie of the listener's connection; 0 when it cannot listen.
DWORD connectEvents(IUnknown& control, IUnknown* listener) noexcept {
    ComPtr<IConnectionPointContainer> points;
    ComPtr<IConnectionPoint> events;
    DWORD cookie = 0;
    if (!listener || FAILED(control.QueryInterface(IID_IConnectionPointContainer, points.putVoid())) ||
        FAILED(points->FindConnectionPoint(__uuidof(__Filter), events.put())) ||
        FAILED(events->Advise(listener, &cookie)))
        return 0;
    return cookie;
}

} // namespace

HRESULT QuickActivation::QuickActivate(QACONTAINER* container, QACONTROL* told) noexcept {
    if (!container || !told)
        return E_POINTER;
    if (container->cbSize < sizeof *container || told->cbSize < sizeof *told)
        return E_INVALIDARG;
    return run([&] {
        activation_.setClient(container->pClientSite);
        if (container->pAdviseSink)
            site_.advice.setView(DVASPECT_CONTENT, 0, container->pAdviseSink);
        const ULONG size = told->cbSize;
        *told = {};
        told->cbSize = size;
        told->dwMiscStatus = filterMiscStatus;
        told->dwViewStatus = VIEWSTATUS_OPAQUE;
        told->dwEventCookie = connectEvents(control(), container->pUnkEventSink);
    });
}

HRESULT QuickActivation::SetContentExtent(LPSIZEL extent) noexcept {
    return run([&]() -> HRESULT {
        ComPtr<IOleObject> object;
        const HRESULT found = ComPtr<IUnknown>::copyFrom(&control()).as(object);
        return FAILED(found) ? found : object->SetExtent(DVASPECT_CONTENT, extent);
    });
}

HRESULT QuickActivation::GetContentExtent(LPSIZEL extent) noexcept {
    if (!extent)
        return E_POINTER;
    *extent = design_.extent();
    return S_OK;
}

} // namespace orv::windows
