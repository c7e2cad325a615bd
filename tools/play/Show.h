#pragma once

#include "play/Json.h"
#include "ui/Control.h"
#include "ui/Spread.h"

namespace orv::play {

/// What there is to see of a control: its texts, items and state by name, and always "visible" and "enabled".
Json shown(const ui::Control& control);

/// What there is to see of one cell of a grid.
Json shownCell(const ui::Spread& grid, int column, int row);

} // namespace orv::play
