#pragma once

#include "windows/ole/Activation.h"
#include "windows/ole/Design.h"
#include "windows/ole/OlePart.h"

namespace orv::windows {

/// Site, sinks and status in one call, as containers with many controls load them.
class QuickActivation final : public OlePart<IQuickActivate> {
  public:
    QuickActivation(OleSite& site, Activation& activation, Design& design) noexcept
        : OlePart(site.control), site_(site), activation_(activation), design_(design) {}

    HRESULT STDMETHODCALLTYPE QuickActivate(QACONTAINER* container, QACONTROL* told) noexcept override;
    HRESULT STDMETHODCALLTYPE SetContentExtent(LPSIZEL extent) noexcept override;
    HRESULT STDMETHODCALLTYPE GetContentExtent(LPSIZEL extent) noexcept override;

  private:
    OleSite& site_;
    Activation& activation_;
    Design& design_;
};

} // namespace orv::windows
