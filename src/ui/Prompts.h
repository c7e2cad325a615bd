#pragma once

#include "ui/Dialog.h"

#include <cstdint>
#include <string>

namespace orv::ui {

/// Styles and answers of message boxes, with the platform's numbers.
namespace messageStyle {
inline constexpr std::int32_t okOnly = 0;
inline constexpr std::int32_t exclamation = 48;
inline constexpr std::int32_t information = 64;
inline constexpr std::int32_t yesNoInformation = 68;
} // namespace messageStyle

enum class MessageAnswer : std::int32_t { ok = 1, cancel = 2, yes = 6, no = 7 };

/// Message boxes and modal dialogs. The shell shows real ones; tests queue answers and record what was shown.
/// Both calls may pump messages: the control may be re-entered before they return.
class Prompts {
  public:
    virtual ~Prompts() = default;
    virtual MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string& title) = 0;
    /// Shows a dialog until it is closed. Where no dialog can be shown it counts as cancelled.
    virtual void showModal(Dialog& dialog) { dialog.close(); }
    /// Tells the host's diagnostics, without a box, what the user need not confirm.
    virtual void log(const std::u16string& text) = 0;
};

/// The title of every message box of the control.
inline constexpr const char16_t* messageTitle = u"Velquor提示";

} // namespace orv::ui
