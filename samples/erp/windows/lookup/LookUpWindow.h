#pragma once

#include "erp/host/LookUpDialog.h"

#include <memory>

namespace orv::erp {

/// Look-ups in a modal window over the active top-level window of the thread: a search box, a list and two buttons (ids
/// in WindowNames.h). Typing filters the list; the arrow keys move in it while the search box has the focus; Enter and
/// a double click take the row, or the checked rows where several may be taken; Esc cancels. A window that cannot be
/// made (no display) counts as cancelled.
std::shared_ptr<LookUpDialog> makeLookUpWindow();

} // namespace orv::erp
