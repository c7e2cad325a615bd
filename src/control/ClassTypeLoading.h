#pragma once

#include "control/FilterState.h"

namespace orv::control {

/// Loads the class types that the host names (a comma list of ids) into the class-type combo box and the chosen one
/// into the grids; without a list, the class type of the data service. Raises what fails.
void loadClassTypes(FilterState& state, std::u16string_view classTypeIds);

/// A click on the class-type combo box: gets a data service for the chosen class type, unless it is loaded already,
/// and reloads everything that depends on it. Raises what fails; the box's tag may hold the new position by then.
void classTypeChosen(FilterState& state);

} // namespace orv::control
