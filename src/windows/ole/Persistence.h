#pragma once

#include "windows/ole/Activation.h"
#include "windows/ole/Design.h"
#include "windows/ole/OlePart.h"

namespace orv::windows {

/// The design state as bytes of a form. The format carries its version and its length: an older control reads what it
/// knows of a newer one's state and skips the rest.
class StreamPersistence final : public OlePart<IPersistStreamInit> {
  public:
    StreamPersistence(OleSite& site, Activation& activation, Design& design) noexcept
        : OlePart(site.control), activation_(activation), design_(design) {}

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) noexcept override;
    HRESULT STDMETHODCALLTYPE IsDirty() noexcept override;
    /// STG_E_READFAULT when the stream ends early, STG_E_INVALIDHEADER when it holds something else.
    HRESULT STDMETHODCALLTYPE Load(IStream* stream) noexcept override;
    HRESULT STDMETHODCALLTYPE Save(IStream* stream, BOOL clearDirty) noexcept override;
    HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER* size) noexcept override;
    HRESULT STDMETHODCALLTYPE InitNew() noexcept override;

  private:
    Activation& activation_;
    Design& design_;
};

/// The design state as named properties: `_ExtentX` and `_ExtentY` (HIMETRIC), `m_JCType`, `ShowFilterStyle`. One that
/// is missing has its initial value; one of a wrong type fails the load and is told to the error log.
class BagPersistence final : public OlePart<IPersistPropertyBag> {
  public:
    BagPersistence(OleSite& site, Activation& activation, Design& design) noexcept
        : OlePart(site.control), activation_(activation), design_(design) {}

    HRESULT STDMETHODCALLTYPE GetClassID(CLSID* id) noexcept override;
    HRESULT STDMETHODCALLTYPE InitNew() noexcept override;
    HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* log) noexcept override;
    HRESULT STDMETHODCALLTYPE Save(IPropertyBag* bag, BOOL clearDirty, BOOL saveAll) noexcept override;

  private:
    Activation& activation_;
    Design& design_;
};

} // namespace orv::windows
