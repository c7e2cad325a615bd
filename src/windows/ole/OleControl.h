#pragma once

#include "windows/ole/Activation.h"
#include "windows/ole/OlePart.h"

#include <string_view>

namespace orv::windows {

/// Accelerators and ambient properties. Enter and Esc stay with the host's dialog.
class OleControl final : public OlePart<IOleControl> {
  public:
    OleControl(OleSite& site, Activation& activation) noexcept : OlePart(site.control), activation_(activation) {}

    HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO* info) noexcept override;
    HRESULT STDMETHODCALLTYPE OnMnemonic(MSG* message) noexcept override;
    HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) noexcept override;
    /// The control raises no events.
    HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) noexcept override { return S_OK; }

  private:
    /// The table that the container was given; it stays the control's.
    class AcceleratorTable {
      public:
        AcceleratorTable() = default;
        AcceleratorTable(const AcceleratorTable&) = delete;
        AcceleratorTable& operator=(const AcceleratorTable&) = delete;
        ~AcceleratorTable() { fill({}); }
        /// One entry for Alt and each of the letters; none leaves no table.
        void fill(std::u16string_view letters) noexcept;
        HACCEL get() const noexcept { return handle_; }

      private:
        HACCEL handle_ = nullptr;
    };

    Activation& activation_;
    AcceleratorTable table_;
};

} // namespace orv::windows
