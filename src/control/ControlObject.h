#pragma once

#include "automation/Object.h"
#include "ui/Control.h"

#include <functional>

namespace orv::control {

/// A constituent control as a host component sees it (the font component gets every control by reference): Name,
/// Index, Caption, Tag, ToolTipText, Visible, Enabled, Left, Top, Width, Height (pixels).
///
/// The object finds its control at each call, so that it may outlive an element of a control array or a dialog:
/// `find` gives null, and the call error 91, when the control is gone. `typeName` must be a literal.
automation::ObjectRef makeControlObject(std::function<ui::Control*()> find, std::u16string_view typeName);

} // namespace orv::control
