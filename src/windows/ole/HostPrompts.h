#pragma once

#include "ui/Prompts.h"
#include "windows/com/MessageBoxPrompts.h"
#include "windows/ole/OleSite.h"

namespace orv::windows {

/// Message boxes and dialogs over the container's top-level window. While one is open the container's modeless
/// windows are disabled.
class HostPrompts final : public ui::Prompts {
  public:
    /// `site` must outlive it.
    explicit HostPrompts(OleSite& site);

    ui::MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string& title) override;
    void showModal(ui::Dialog& dialog) override;
    void log(const std::u16string& text) override;

  private:
    HWND owner() const noexcept;

    OleSite& site_;
    HWND dialog_ = nullptr; ///< the dialog that is open: boxes stand over it
    MessageBoxPrompts boxes_;
};

} // namespace orv::windows
