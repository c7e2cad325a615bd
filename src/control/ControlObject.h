#pragma once

#include "automation/Object.h"
#include "control/FilterControls.h"

#include <memory>

namespace orv::control {

/// A constituent control as a host component sees it (the font component gets every control by reference): Name,
/// Index, Caption, Tag, ToolTipText, Visible, Enabled, Left, Top, Width, Height (pixels).
///
/// The object names its control and finds it at each call, so that it may outlive an element of a control array;
/// error 91 when the control is gone.
automation::ObjectRef makeControlObject(std::shared_ptr<FilterControls> controls, const ui::Control& control);

} // namespace orv::control
