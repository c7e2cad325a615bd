#pragma once

#include "control/FilterState.h"

namespace orv::control {

/// Rebuilds what depends on the class type: page check boxes, field lists, filter panel, option boxes,
/// scheme list.
void reloadClassType(FilterState& state);

/// Fills the column display grid with the fields of the pages now selected.
void initHideColumns(FilterState& state);

/// The field drop-downs of the condition grid and the sort grid, for the pages now selected.
void fillFieldLists(FilterState& state);

/// Whether a class type has quick filters, by the text that the class-type box shows for it.
bool hasQuickFilterBoxes(std::int32_t classTypeId, std::u16string_view classTypeText);

} // namespace orv::control
