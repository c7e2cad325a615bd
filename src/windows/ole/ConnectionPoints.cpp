#include "windows/ole/ConnectionPoints.h"

#include "windows/com/Enumerator.h"

#include <ORVFilter.h>
#include <olectl.h>

namespace orv::windows {

namespace {

struct HeldConnection {
    ComPtr<IUnknown> sink;
    DWORD cookie = 0;
    CONNECTDATA give() const noexcept { return {ComPtr<IUnknown>(sink).detach(), cookie}; }
};

struct HeldPoint {
    ComPtr<IConnectionPoint> point;
    IConnectionPoint* give() const noexcept { return ComPtr<IConnectionPoint>(point).detach(); }
};

using ConnectionList = Enumerator<IEnumConnections, CONNECTDATA, HeldConnection>;
using PointList = Enumerator<IEnumConnectionPoints, IConnectionPoint*, HeldPoint>;

} // namespace

HRESULT FilterEvents::QueryInterface(REFIID id, void** out) noexcept {
    if (!out)
        return E_POINTER;
    *out = id == IID_IUnknown || id == IID_IConnectionPoint ? static_cast<IConnectionPoint*>(this) : nullptr;
    if (!*out)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

HRESULT FilterEvents::GetConnectionInterface(IID* id) noexcept {
    if (!id)
        return E_POINTER;
    *id = __uuidof(__Filter);
    return S_OK;
}

HRESULT FilterEvents::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept {
    if (!container)
        return E_POINTER;
    return control_.QueryInterface(IID_IConnectionPointContainer, reinterpret_cast<void**>(container));
}

HRESULT FilterEvents::Advise(IUnknown* sink, DWORD* cookie) noexcept {
    if (!sink || !cookie)
        return E_POINTER;
    *cookie = 0;
    return guarded([&]() -> HRESULT {
        ComPtr<IUnknown> listener;
        if (FAILED(sink->QueryInterface(__uuidof(__Filter), listener.putVoid())) &&
            FAILED(sink->QueryInterface(IID_IDispatch, listener.putVoid())))
            return CONNECT_E_CANNOTCONNECT;
        sinks_.emplace(lastCookie_ + 1, std::move(listener));
        *cookie = ++lastCookie_;
        return S_OK;
    });
}

HRESULT FilterEvents::Unadvise(DWORD cookie) noexcept {
    const ComPtr<IUnknown> alive = ComPtr<IUnknown>::copyFrom(&control_);
    // Taken out of the list first: letting go of the listener may come back here.
    const auto node = sinks_.extract(cookie);
    return node.empty() ? CONNECT_E_NOCONNECTION : S_OK;
}

HRESULT FilterEvents::EnumConnections(IEnumConnections** connections) noexcept {
    if (!connections)
        return E_POINTER;
    *connections = nullptr;
    return guarded([&] {
        std::vector<HeldConnection> list;
        for (const auto& [cookie, sink] : sinks_)
            list.push_back({sink, cookie});
        *connections = makeComObject<ConnectionList>(std::move(list)).detach();
    });
}

HRESULT ConnectionPoints::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
    if (!points)
        return E_POINTER;
    *points = nullptr;
    return run([&] {
        std::vector<HeldPoint> list{{ComPtr<IConnectionPoint>::copyFrom(&events_)}};
        *points = makeComObject<PointList>(std::move(list)).detach();
    });
}

HRESULT ConnectionPoints::FindConnectionPoint(REFIID id, IConnectionPoint** point) noexcept {
    if (!point)
        return E_POINTER;
    const bool isKnown = id == __uuidof(__Filter);
    *point = isKnown ? ComPtr<IConnectionPoint>::copyFrom(&events_).detach() : nullptr;
    return isKnown ? S_OK : CONNECT_E_NOCONNECTION;
}

} // namespace orv::windows
