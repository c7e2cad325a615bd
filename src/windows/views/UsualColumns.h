#pragma once

namespace orv::control {
struct FilterControls;
}

namespace orv::windows {

/// Gives the grids' columns widths that suit their content, where they still have the width that every new column has.
/// The columns behind the widths of `vsHideColumn` hold keys for the system's own use: they are hidden.
void setUsualColumns(control::FilterControls& controls);

} // namespace orv::windows
