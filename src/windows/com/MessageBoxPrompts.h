#pragma once

#include "ui/Prompts.h"

#include <windows.h>

#include <functional>

namespace orv::windows {

/// Real message boxes, owned by the control's window when it has one.
class MessageBoxPrompts final : public ui::Prompts {
  public:
    /// `owner` tells the window that a box shall disable; null for none.
    explicit MessageBoxPrompts(std::function<HWND()> owner) : owner_(std::move(owner)) {}

    ui::MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string& title) override;
    /// To the debugger.
    void log(const std::u16string& text) override;

  private:
    std::function<HWND()> owner_;
};

} // namespace orv::windows
