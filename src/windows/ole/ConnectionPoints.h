#pragma once

#include "windows/ole/OlePart.h"

#include <map>

namespace orv::windows {

/// Where listeners to `__Filter` connect. They are kept and never called: the interface has no events. It is an object
/// of its own to its clients, and lives with the control.
class FilterEvents final : public IConnectionPoint {
  public:
    explicit FilterEvents(IUnknown& control) noexcept : control_(control) {}
    FilterEvents(const FilterEvents&) = delete;
    FilterEvents& operator=(const FilterEvents&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) noexcept override;
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return control_.AddRef(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return control_.Release(); }

    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID* id) noexcept override;
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) noexcept override;
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections** connections) noexcept override;

  private:
    IUnknown& control_;
    std::map<DWORD, ComPtr<IUnknown>> sinks_;
    DWORD lastCookie_ = 0;
};

class ConnectionPoints final : public OlePart<IConnectionPointContainer> {
  public:
    explicit ConnectionPoints(IUnknown& control) noexcept : OlePart(control), events_(control) {}

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** point) noexcept override;

  private:
    FilterEvents events_;
};

} // namespace orv::windows
