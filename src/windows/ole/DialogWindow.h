#pragma once

#include "ui/Dialog.h"
#include "windows/views/FilterWindow.h"

namespace orv::windows {

/// Shows a dialog's model as a modal window over `owner` until it is closed: its controls in tab order one below the
/// other, the buttons at the bottom. Enter and Esc press the default and the cancel button. A dialog that cannot be
/// shown, or whose window is destroyed, is closed without an answer. `window` holds the dialog's window meanwhile.
void showDialog(ui::Dialog& dialog, HWND owner, const Appearance& look, HWND& window);

} // namespace orv::windows
